// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace teskel
{

/// The text of a settings file, which keeps every line that it was not asked to change.
///
/// The text is UTF-8: `[group]` lines, each followed by `key = value` lines. Blank lines, comments
/// (first character "#" or ";"), lines of neither form, keys in front of the first group, and keys
/// behind a line that begins like a group but is none, mean nothing and stay where they are. So do
/// a byte-order mark, carriage returns, and bytes that are no UTF-8; only the line of a value that
/// changes is written anew. A group met again goes on with its keys, a key met again replaces the
/// earlier value; both lines stay.
///
/// New groups and keys go where they belong in sorted order, so a file that nobody edits is a
/// sorted one. What stands between two groups stays in front of the second.
class ConfigText
{
public:
    struct Group {
        QString name;
        QMap<QString, QString> values; ///< by their keys
    };

    ConfigText() = default;
    explicit ConfigText(const QByteArray& text);

    bool isEmpty() const { return _lines.isEmpty(); }
    /// The whole text. A last line that had no line feed has got one.
    QByteArray toUtf8() const;

    bool hasGroup(const QString& group) const;
    void addGroup(const QString& group);

    std::optional<QString> value(const QString& group, const QString& key) const;
    /// Adds the group when it is missing. Returns false when nothing had to be changed.
    bool setValue(const QString& group, const QString& key, const QString& value);
    /// Removes every line of the key. Returns false when there was none.
    bool removeKey(const QString& group, const QString& key);
    /// Removes every key of the group; the group stays. Returns false when there was none.
    bool clearGroup(const QString& group);

    /// All groups, in the order in which they first appear.
    QList<Group> groups() const;
    /// Removes these keys from each of these groups, and a group that has no key left with them.
    /// Returns false when there was nothing to remove.
    bool removeFromGroups(const QSet<QString>& groups, const QStringList& keys);

    // Names and values have no escapes, so what cannot stand in a line is replaced. Everything
    // above takes only what has passed through these.

    /// `name` as it can stand between brackets on one line.
    static QString groupName(QString name);
    /// `key` as it can stand before an equals sign without passing for a group or a comment.
    static QString keyName(QString key);
    /// `value` as it can stand after an equals sign.
    static QString valueText(QString value);

private:
    struct Line {
        enum Kind { Group, Entry, Other };

        Kind kind = Other;
        QByteArray bytes; ///< with the line break; for `Other` any number of lines
        QString group;    ///< its own name, or that of the group that an entry is in
        QString key;
        QString value;
    };

    void append(QByteArrayView bytes, std::optional<QString>& group, QSet<QString>& keys);
    qsizetype lastIndexOf(Line::Kind kind, const QString& group, const QString& key) const;
    qsizetype placeOfGroup(const QString& group) const;
    qsizetype placeOfKey(const QString& group, const QString& key) const;
    Line groupLine(const QString& group) const;
    Line entryLine(const QString& group, const QString& key, const QString& value) const;

    QByteArray _mark; ///< the byte-order mark, if the text has one
    QByteArray _lineBreak = QByteArrayLiteral("\n");
    QList<Line> _lines;
};

} // namespace teskel
