// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/foldedword.h"
#include "dictionary/unpacking/decode.h"

#include <vector>

namespace teskel
{

/// An unpacked record and where its entries begin.
///
/// The text is followed by enough NULs that a record without its terminators reads as if its last
/// entry were ended properly. Entries are found at the first request and remembered.
class TextRecord
{
public:
    /// NULs that must follow the text of `block`. Three end a headword, its article and the record;
    /// the others let the first bytes of every headword be read in one.
    static constexpr std::size_t spareBytes = FoldedHead::bytes;
    static_assert(spareBytes >= 3);

    /// @param block  a member unpacked with spareBytes spare bytes
    explicit TextRecord(MemberBlock block)
        : _block(std::move(block))
    {
    }

    [[nodiscard]] const char* text() const { return _block.data.get(); }
    /// Bytes of the record as it was packed.
    [[nodiscard]] quint32 size() const { return _block.size; }

    /// Number of entries.
    [[nodiscard]] quint16 count() const;
    /// The headword of an entry below count(); its article follows the NUL.
    [[nodiscard]] const char* word(quint16 entry) const;
    /// Where the empty headword stands that ends the record: at size() when there is none, beyond
    /// it when the last entry is cut off.
    [[nodiscard]] quint32 end() const;
    /// The first entry, in record order, whose headword does not compare below `word`, or count().
    /// Searched by halves where the headwords ascend, which gives the same result.
    [[nodiscard]] quint16 firstNotBelow(const FoldedWord& word) const;

private:
    void findEntries() const;

    MemberBlock _block;
    mutable std::vector<quint16> _offsets; // of the headwords
    mutable quint32 _end = 0;
    mutable bool _isParsed = false;
    mutable bool _isAscending = false;
};

} // namespace teskel
