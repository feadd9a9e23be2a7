// SPDX-License-Identifier: MIT
#include "settings/fontgroups.h"

#include "platform/config.h"
#include "settings/fontkeys.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

using Group = ConfigText::Group;

QString orderKey()
{
    return u"FontOrder"_s;
}

/// A group without a font tells nothing, so it is the first to go.
constexpr qint64 withoutFont = -1;
constexpr qint64 withoutNumber = 0;
/// More than anybody stores; what is above was not counted.
constexpr qint64 highestNumber = 1'000'000'000'000'000;

qint64 orderOf(const Group& group)
{
    if (!group.values.contains(fontNameKey()) && !group.values.contains(fontSizeKey()))
        return withoutFont;
    const qint64 number = group.values.value(orderKey()).toLongLong();
    return number > 0 && number < highestNumber ? number : withoutNumber;
}

bool isFontGroup(const Group& group)
{
    return QDir::isAbsolutePath(group.name) &&
           (group.values.isEmpty() || group.values.contains(fontNameKey()) ||
            group.values.contains(fontSizeKey()) || group.values.contains(orderKey()));
}

/// Tells which files are there, and asks only once for each directory that is not.
class FilePresence
{
public:
    bool isPresent(const QString& path)
    {
        const QString directory = path.first(path.lastIndexOf(u'/') + 1);
        auto known = _directories.constFind(directory);
        if (known == _directories.cend())
            known = _directories.insert(directory, QFileInfo::exists(directory));
        return *known && QFileInfo::exists(path);
    }

private:
    QHash<QString, bool> _directories;
};

} // namespace

void FontGroups::markStored(const QString& group)
{
    const QString name = ConfigText::groupName(group);
    qint64 own = withoutNumber;
    qint64 highest = withoutNumber;
    const QList<Group> groups = _config.groups();
    for (const Group& other : groups) {
        const qint64 order = orderOf(other);
        if (other.name == name)
            own = order;
        else
            highest = std::max(highest, order);
    }
    if (own <= highest)
        _config.writeEntry(orderKey(), QString::number(highest + 1));
}

void FontGroups::makeRoom(const QString& kept)
{
    struct FontGroup {
        qint64 order;
        QString name;
    };
    QList<FontGroup> fonts;
    const QList<Group> groups = _config.groups();
    for (const Group& group : groups) {
        if (isFontGroup(group))
            fonts.append({orderOf(group), group.name});
    }
    qsizetype tooMany = fonts.size() - most;
    if (tooMany <= 0)
        return;
    std::stable_sort(fonts.begin(), fonts.end(),
                     [](const FontGroup& a, const FontGroup& b) { return a.order < b.order; });
    const QString keptName = ConfigText::groupName(kept);
    FilePresence presence;
    QSet<QString> removed;
    for (const FontGroup& font : std::as_const(fonts)) {
        if (tooMany == 0)
            break;
        if (font.name == keptName || presence.isPresent(font.name))
            continue;
        removed.insert(font.name);
        --tooMany;
    }
    _config.removeFromGroups(removed, {fontNameKey(), fontSizeKey(), orderKey()});
}

} // namespace teskel
