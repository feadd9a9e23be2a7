// SPDX-License-Identifier: MIT
#pragma once

#include "platform/configtext.h"
#include "platform/directorylock.h"
#include "platform/wholefile.h"

#include <QString>

#include <optional>

/// One settings file, read when constructed and written back when destroyed if it was changed.
///
/// The file is UTF-8: `[group]` lines, each followed by `key = value` lines. There is no escaping,
/// so line feeds in names and values become blanks and blanks around keys and values are cut; what
/// is read back from this object before it is written is what a later object reads from the file.
/// Whatever else stands in the file, such as comments, means nothing and stays
/// (teskel::ConfigText). A missing, unreadable or oversized file counts as empty; one that could
/// not be read, for whatever cause, is never replaced, since it may hold settings, and an oversized
/// one is kept under another name. While an object lives, those of other processes wait a moment
/// (teskel::DirectoryLock), so keep it for one operation only, and never two at once.
class Config
{
public:
    /// In bytes, of a file that is read. Settings are a few hundred bytes, those of someone with
    /// many dictionaries some ten thousand.
    static constexpr qint64 largestFile = 8'388'608;

    enum Domain {
        File, ///< the name is the path of the file
        User, ///< `$XDG_CONFIG_HOME/teskel/<name>.conf`, by default below `~/.config`
    };

    /// Reads the settings `name`. In the user domain a file of the handheld days,
    /// `$HOME/Settings/<name>.conf`, is taken over when the present one does not exist.
    explicit Config(const QString& name, Domain domain = User);
    /// Writes the file if anything changed.
    ~Config();
    Config(const Config&) = delete;
    Config& operator=(const Config&) = delete;

    /// Selects the group of the following calls. Any text is a name, the empty one too. A missing
    /// group is created, which changes the file.
    void setGroup(const QString& group);

    bool hasKey(const QString& key) const;
    /// The value of `key`, or `def` when the key is missing.
    QString readEntry(const QString& key, const QString& def = QString()) const;
    /// The value as a number: `def` when it is missing or empty, 0 when it is not a whole number.
    int readNumEntry(const QString& key, int def = -1) const;
    /// True for any number but 0; `def` when the value is missing or empty.
    bool readBoolEntry(const QString& key, bool def = false) const;

    void writeEntry(const QString& key, const QString& value);
    void writeEntry(const QString& key, int value);
    void writeEntry(const QString& key, bool value);
    /// A string literal would quietly become a bool.
    void writeEntry(const QString& key, const char* value) = delete;

    void removeEntry(const QString& key);
    /// Removes every key of the selected group; the group itself stays.
    void clearGroup();

    /// All groups with their keys and values, in the order of the file.
    QList<teskel::ConfigText::Group> groups() const { return _text.groups(); }
    /// Removes these keys from each of these groups, and a group that has no key left with them.
    void removeFromGroups(const QSet<QString>& groups, const QStringList& keys);

    /// Replaces the file at once, atomically, if anything changed. Creates its directory. A file
    /// that is too large to be read gets a second name first, with `.backup` and a number behind
    /// it, which a warning tells.
    /// @return false when it could not be written and is as it was; that prints one warning for
    ///         each file, which says why, not one for each attempt
    bool write();

    /// Path of the file that write() replaces.
    QString fileName() const { return _fileName; }

private:
    /// Takes the text from the file, if there is one.
    teskel::Reading read(const QString& path);
    /// Puts the text into the file; returns why it could not, or nothing.
    QString replace();
    /// Whether there is a selected group to change; warns when there is none.
    bool hasSelectedGroup() const;

    QString _fileName;
    teskel::DirectoryLock _lock;
    teskel::ConfigText _text;
    teskel::Reading _present; ///< of the file that write() replaces
    std::optional<QString> _group;
    bool _changed = false;
};
