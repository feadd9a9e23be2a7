// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace teskel
{

/// Limits of the dictionary file and of its reader.
namespace limits
{
inline constexpr unsigned headwordBytes = 511;     ///< the reader's buffers, less the final NUL
inline constexpr unsigned descriptionBytes = 511;  ///< likewise
inline constexpr unsigned recordBytes = 32767;     ///< an unpacked record
inline constexpr unsigned packedBytes = 64U << 20; ///< a record as it stands in the file
inline constexpr unsigned firstWordRecord = 5;     ///< records in front of the word records
inline constexpr unsigned wordRecords = 65535 - firstWordRecord;
/// Bytes of entries in one record; the end of the record needs one more.
inline constexpr unsigned recordPayload = recordBytes - 1;
} // namespace limits

/// A headword and its article in Latin-1, as they stand in a record: each ended by a NUL. The bytes
/// belong to the arena that made the entry.
struct LexiconEntry {
    const char* text = nullptr;
    uint32_t articleLength = 0;
    uint32_t order = 0; ///< place in the source, which decides among equal headwords
    uint16_t headwordLength = 0;
    /// Bytes of the line with which the article begins to give the headword as it is written; 0
    /// when it does not.
    uint16_t writtenLength = 0;

    std::string_view headword() const { return {text, headwordLength}; }
    std::string_view article() const { return {text + headwordLength + 1, articleLength}; }
    /// Both texts with their NULs.
    std::string_view packed() const { return {text, headwordLength + articleLength + 2U}; }
};

/// Whether the reader's comparison finds the headwords equal.
bool foldsAlike(const LexiconEntry& a, const LexiconEntry& b);

/// The order of entries in a lexicon: the reader's comparison first; among words that differ in
/// case only, small letters before capitals; then the order of the source.
bool comesBefore(const LexiconEntry& a, const LexiconEntry& b);

} // namespace teskel
