// SPDX-License-Identifier: MIT
#include "platform/config.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

using teskel::Reading;

namespace
{

QString userFileName(const QString& name)
{
    QString directory = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(directory))
        directory = QDir::homePath() + "/.config"_L1;
    return directory + "/teskel/"_L1 + name + ".conf"_L1;
}

QString handheldFileName(const QString& name)
{
    return QDir::homePath() + "/Settings/"_L1 + name + ".conf"_L1;
}

// The settings are written several times in a session; one complaint about a file is enough.
QSet<QString>& complainedAbout()
{
    static QSet<QString> files;
    return files;
}

} // namespace

Config::Config(const QString& name, Domain domain)
    : _fileName(domain == User ? userFileName(name) : name)
    , _lock(QFileInfo(_fileName).absolutePath())
    , _present(read(_fileName))
{
    if (_present == Reading::Missing && domain == User) {
        read(handheldFileName(name));
        _changed = !_text.isEmpty();
    }
}

Config::~Config()
{
    write();
}

Reading Config::read(const QString& path)
{
    QByteArray text;
    const Reading reading = teskel::readWhole(path, largestFile, text);
    if (reading == Reading::Read)
        _text = teskel::ConfigText(text);
    return reading;
}

void Config::setGroup(const QString& group)
{
    _group = teskel::ConfigText::groupName(group);
    if (_text.hasGroup(*_group))
        return;
    _text.addGroup(*_group);
    _changed = true;
}

bool Config::hasSelectedGroup() const
{
    if (!_group)
        qWarning("Config: no group is selected in %s", qPrintable(_fileName));
    return _group.has_value();
}

bool Config::hasKey(const QString& key) const
{
    return _group && _text.value(*_group, teskel::ConfigText::keyName(key));
}

QString Config::readEntry(const QString& key, const QString& def) const
{
    return _group ? _text.value(*_group, teskel::ConfigText::keyName(key)).value_or(def) : def;
}

int Config::readNumEntry(const QString& key, int def) const
{
    const QString text = readEntry(key);
    return text.isEmpty() ? def : text.toInt();
}

bool Config::readBoolEntry(const QString& key, bool def) const
{
    return readNumEntry(key, def ? 1 : 0) != 0;
}

void Config::writeEntry(const QString& key, const QString& value)
{
    if (hasSelectedGroup() && _text.setValue(*_group, teskel::ConfigText::keyName(key),
                                             teskel::ConfigText::valueText(value)))
        _changed = true;
}

void Config::writeEntry(const QString& key, int value)
{
    writeEntry(key, QString::number(value));
}

void Config::writeEntry(const QString& key, bool value)
{
    writeEntry(key, value ? 1 : 0);
}

void Config::removeEntry(const QString& key)
{
    if (hasSelectedGroup() && _text.removeKey(*_group, teskel::ConfigText::keyName(key)))
        _changed = true;
}

void Config::clearGroup()
{
    if (hasSelectedGroup() && _text.clearGroup(*_group))
        _changed = true;
}

void Config::removeFromGroups(const QSet<QString>& groups, const QStringList& keys)
{
    if (_text.removeFromGroups(groups, keys))
        _changed = true;
}

QString Config::replace()
{
    if (_present == Reading::Unreadable)
        return u"what is there cannot be read"_s;
    if (_present == Reading::TooLarge) {
        const QString backup = teskel::keepAside(_fileName);
        if (backup.isEmpty())
            return u"what is there is too large to be read and cannot be kept aside"_s;
        if (QString reason = teskel::replaceWhole(_fileName, _text.toUtf8()); !reason.isEmpty()) {
            teskel::takeBack(_fileName, backup);
            return reason;
        }
        qWarning("The settings in %s are too large to be read; they are kept as %s",
                 qPrintable(_fileName), qPrintable(backup));
        _present = Reading::Read;
        return {};
    }
    return teskel::replaceWhole(_fileName, _text.toUtf8());
}

bool Config::write()
{
    if (!_changed)
        return true;

    const QString reason = replace();
    if (reason.isEmpty()) {
        _changed = false;
        complainedAbout().remove(_fileName);
        return true;
    }
    if (!complainedAbout().contains(_fileName)) {
        complainedAbout().insert(_fileName);
        qWarning("The settings cannot be written to %s: %s", qPrintable(_fileName),
                 qPrintable(reason));
    }
    return false;
}
