// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/dictionarywriter.h"

#include <QByteArrayList>
#include <QRandomGenerator>

namespace teskel::test
{

/// A good lexicon of a few records, which can be damaged before or after it is put together.
///
/// It translates German words to English ones; "Haus" is among them, and there is always "house" in
/// an article. Method, entries of a record and articles are chosen by the generator.
class LexiconDraft
{
public:
    explicit LexiconDraft(QRandomGenerator& generator);

    int method;                  ///< by which records are packed, 1 to 4
    QByteArray description;      ///< rich text
    QList<QList<Entry>> records; ///< of entries

    /// The unpacked text of each word record.
    [[nodiscard]] QByteArrayList texts() const;
    /// Any text as a member, packed by `method`.
    [[nodiscard]] QByteArray packed(const QByteArray& text) const;
    /// The word records as they stand in the file.
    [[nodiscard]] QByteArrayList members() const;
    /// The keys of the index.
    [[nodiscard]] QByteArrayList keys() const;

    /// The container of these members, with the right index or with `index`.
    [[nodiscard]] PalmWriter container() const { return container(members()); }
    [[nodiscard]] PalmWriter container(const QByteArrayList& members) const;
    [[nodiscard]] PalmWriter containerWithIndex(const QByteArray& index) const;

    /// The whole file: of these entries, with these members, with these texts in place of the
    /// records, or with this index.
    [[nodiscard]] QByteArray file() const { return container().build(); }
    [[nodiscard]] QByteArray fileOfMembers(const QByteArrayList& members) const;
    [[nodiscard]] QByteArray fileOfTexts(const QByteArrayList& texts) const;
    [[nodiscard]] QByteArray fileWithIndex(const QByteArray& index) const;
    /// The file when one record, chosen by the generator, has this text or these bytes.
    [[nodiscard]] QByteArray fileWithText(const QByteArray& text,
                                          QRandomGenerator& generator) const;
    [[nodiscard]] QByteArray fileWithMember(const QByteArray& member,
                                            QRandomGenerator& generator) const;
    /// The file when one article, chosen by the generator, is another.
    [[nodiscard]] QByteArray fileWithArticle(const QByteArray& article,
                                             QRandomGenerator& generator);
    [[nodiscard]] PalmWriter containerOf(const QByteArray& index,
                                         const QByteArrayList& members) const;

    static constexpr int firstWordRecord = 5;
};

/// A place in a non-empty text.
[[nodiscard]] qsizetype randomPlace(const QByteArray& bytes, QRandomGenerator& generator);
/// `count` bytes of any value.
[[nodiscard]] QByteArray randomBytes(int count, QRandomGenerator& generator);
/// `bytes` with others from `offset` on.
[[nodiscard]] QByteArray patched(QByteArray bytes, qsizetype offset, const QByteArray& others);
[[nodiscard]] QByteArray bigEndian16(quint32 value);
[[nodiscard]] QByteArray bigEndian32(quint32 value);
[[nodiscard]] QByteArray littleEndian16(quint32 value);
[[nodiscard]] QByteArray littleEndian32(quint32 value);

} // namespace teskel::test
