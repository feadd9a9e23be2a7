// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/palmwriter.h"

#include <QByteArray>
#include <QList>
#include <QPair>

namespace teskel::test
{

/// Headword and article.
using Entry = QPair<QByteArray, QByteArray>;

/// Writes dictionary files from entries, which must come in the order of dictionaries.
///
///     DictionaryWriter().setDescription("Test").addRecord({{"ant", "Ameise"}}).write(path);
class DictionaryWriter
{
public:
    DictionaryWriter& setDescription(const QByteArray& text);
    /// Adds one word record; its key is its first headword.
    DictionaryWriter& addRecord(const QList<Entry>& entries);
    /// Adds entries as word records of at most `perRecord` entries each.
    DictionaryWriter& addEntries(const QList<Entry>& entries, int perRecord);
    /// Adds a word record as it stands in the file, with its key.
    DictionaryWriter& addPackedRecord(const QByteArray& key, const QByteArray& packed);
    /// Replaces the key of the last record added.
    DictionaryWriter& setLastKey(const QByteArray& key);
    /// Replaces the whole index record.
    DictionaryWriter& setIndex(const QByteArray& bytes);

    /// The container with all records, for further damage.
    [[nodiscard]] PalmWriter container() const;
    [[nodiscard]] bool write(const QString& path) const;

    /// Entries as the text of an unpacked record.
    [[nodiscard]] static QByteArray recordText(const QList<Entry>& entries);

private:
    QByteArray _description = "A dictionary made for a test";
    QByteArrayList _keys;
    QByteArrayList _packed;
    QByteArray _index;
    bool _hasIndex = false;
};

} // namespace teskel::test
