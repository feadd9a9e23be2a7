// SPDX-License-Identifier: MIT
#include "platform/configtext.h"

#include <QStringList>

namespace teskel
{

ConfigGroups parseConfig(const QByteArray& text)
{
    ConfigGroups groups;
    if (!text.startsWith('['))
        return groups;

    ConfigGroup* group = nullptr;
    const QStringList lines = QString::fromUtf8(text).split(u'\n');
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.isEmpty())
            continue;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            group = &groups[line.sliced(1, line.size() - 2)];
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals < 0 || group == nullptr)
            break;
        group->insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
    return groups;
}

QByteArray formatConfig(const ConfigGroups& groups)
{
    QString text;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        text += u'[' + group.key() + QLatin1String("]\n");
        for (auto entry = group->cbegin(); entry != group->cend(); ++entry)
            text += entry.key() + QLatin1String(" = ") + entry.value() + u'\n';
    }
    return text.toUtf8();
}

QString configGroupName(QString name)
{
    return name.replace(u'\n', u' ');
}

QString configKey(QString key)
{
    return key.replace(u'\n', u' ').replace(u'=', u'_').replace(u'[', u'_').trimmed();
}

QString configValue(QString value)
{
    return value.replace(u'\n', u' ').trimmed();
}

} // namespace teskel
