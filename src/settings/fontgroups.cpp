// SPDX-License-Identifier: MIT
#include "settings/fontgroups.h"

#include "platform/config.h"
#include "settings/fontkeys.h"

#include <QDir>
#include <QFileInfo>

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
    QList<Group> groups = _config.groups();
    groups.removeIf([](const Group& group) { return !isFontGroup(group); });
    qsizetype tooMany = groups.size() - most;
    if (tooMany <= 0)
        return;
    std::stable_sort(groups.begin(), groups.end(),
                     [](const Group& a, const Group& b) { return orderOf(a) < orderOf(b); });
    QSet<QString> removed;
    for (const Group& group : std::as_const(groups)) {
        if (tooMany == 0)
            break;
        if (group.name == ConfigText::groupName(kept) || QFileInfo::exists(group.name))
            continue;
        removed.insert(group.name);
        --tooMany;
    }
    _config.removeFromGroups(removed, {fontNameKey(), fontSizeKey(), orderKey()});
}

} // namespace teskel
