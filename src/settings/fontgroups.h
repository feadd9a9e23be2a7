// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class Config;

namespace teskel
{

/// Keeps the settings file from filling up with the fonts of dictionaries that are gone.
///
/// A font group has the path of a dictionary's file for its name. Each that is stored gets a
/// number, one above the highest, so that the file itself tells which is the oldest; those without
/// a number are older than all others, and of equals the first in the file is. Card and disk come
/// and go: nothing is removed while there is room.
class FontGroups
{
public:
    /// Groups that a file may have before those of missing files are removed.
    static constexpr qsizetype most = 500;

    /// @param config not owned; must outlive the object
    explicit FontGroups(Config& config)
        : _config(config)
    {
    }

    /// Marks the group, which is selected and has its font, as the one stored last.
    void markStored(const QString& group);
    /// Removes the fonts of missing files, the oldest first, as far as there are too many groups.
    /// What else stands in those groups stays. Leaves `kept` alone.
    void makeRoom(const QString& kept = QString());

private:
    Config& _config;
};

} // namespace teskel
