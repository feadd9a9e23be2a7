// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <utility>

class Config;

namespace teskel
{

/// What this run has seen in the settings file, so that it writes over what it has not seen only
/// what it changed itself.
///
/// The file may have changed since: another reader wrote it, or it could not be read when this run
/// started, as on a disk that was not there yet. A value that is the same here as when it was taken
/// from the file, and that is another one in the file by now, stays as it is there.
class SeenSettings
{
public:
    /// Notes what the file holds for a key, and the value that was made of it.
    /// @param config has `group` selected
    void note(const Config& config, const QString& group, const QString& key, const QString& value);
    /// Makes `value` that of a key which follows from others: it counts as not changed here.
    void follow(const QString& group, const QString& key, const QString& value);

    /// Writes a value, unless another one has to stay.
    /// @param config has `group` selected
    void write(Config& config, const QString& group, const QString& key, const QString& value);
    /// Tells whether what was written since the last call is in the file now.
    void settle(bool isInFile);

private:
    using Name = std::pair<QString, QString>; ///< of the group, and of the key in it
    struct Seen {
        std::optional<QString> present; ///< in the file; nothing when it had none
        QString own;                    ///< of this run
    };

    QHash<Name, Seen> _seen;
    QHash<Name, Seen> _written;
};

} // namespace teskel
