// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/textdecoder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace teskel
{

/// How the bytes of a source are read.
struct EncodingOptions {
    std::string name;             ///< as TextDecoder takes it; empty: UTF-8
    bool replacesInvalid = false; ///< bytes that are no text are no error, however many they are
};

/// "0xE4", for people.
std::string inHexadecimal(char byte);

/// The texts of one source: decodes them, and judges whether they are what they are taken for.
///
/// A byte that is no UTF-8 is an error, unless it is asked for to replace such ones.
class SourceText
{
public:
    /// Before anything is read.
    void setOptions(const EncodingOptions& options);
    const EncodingOptions& options() const { return _options; }

    /// A text of its own as UTF-8. It is `part` (", in its article") of what stands at `where`
    /// ("words.index:17"). The result lives until the next call.
    std::string_view decoded(std::string_view bytes, std::string_view where,
                             std::string_view part = {});
    /// Looks at a text that is decoded already, or was meant to be UTF-8.
    void check(std::string_view text, std::string_view where, std::string_view part = {});
    /// Looks at the next piece of a file. Lines are counted in it.
    void checkNext(std::string_view text, std::string_view file);
    /// The file is at its end.
    void checkEnd(std::string_view file);

    /// False when something is no text; `error` says where that begins and what it may be, and
    /// whether it can be replaced.
    bool isAccepted(bool canReplace, std::string& error) const;

private:
    void noteInvalid(std::string_view text, size_t place, size_t column, std::string where);

    EncodingOptions _options;
    std::optional<TextDecoder> _decoder;
    std::string _text;
    std::string _first;    ///< the place of the first that is no text, for people
    std::string _sample;   ///< what stands around the first ones
    size_t _sampledTo = 0; ///< of the text that is looked at, it has what stands before
    // Of the file that is looked at piece by piece:
    std::string _cut; ///< the beginning of a character, where the last piece ended
    uint64_t _line = 1;
    uint64_t _column = 0; ///< bytes of the line that were passed
};

} // namespace teskel
