// SPDX-License-Identifier: MIT
// Any bytes as a text with references to characters, by name, by number and by letters.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "lexicon/text/characterreference.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/plaintext.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <string>

using namespace teskel;
using namespace teskel::fuzz;

namespace
{
constexpr char32_t replacement = 0xFFFD;
constexpr char32_t lastCodePoint = 0x10FFFF;

void checkLetterReference(std::string_view text, std::u32string_view characters)
{
    const LetterReference reference = readLetterReference(text);
    const LetterReference same = readLetterReference(characters);
    require(reference.length == same.length && reference.character == same.character);
    require(reference.length <= text.size());
    if (reference.length == 0)
        return;
    require(reference.character == replacement || isShowable(reference.character));
    const std::string again = letterReference(reference.character);
    require(readLetterReference(again).character == reference.character);
    require(readLetterReference(again).length == again.size());
}

void checkDigitReference(std::u32string_view text)
{
    const CharacterReference reference = readDigitReference(text);
    require(reference.length <= text.size());
    if (reference.length > 0)
        require(text[reference.length - 1] == U';' && reference.character <= lastCodePoint);
}

// What a reader sees of a text never has the bytes of no UTF-8.
void requireUtf8(const std::string& text)
{
    require(utf8::decoded(text).find(utf8::invalid) == std::u32string::npos);
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::u32string characters;
    for (std::size_t at = 0; at < size; ++at)
        characters += char32_t{data[at]};
    for (std::size_t at = text.find('&'); at != std::string_view::npos;
         at = text.find('&', at + 1)) {
        checkLetterReference(text.substr(at), std::u32string_view(characters).substr(at));
        checkDigitReference(std::u32string_view(characters).substr(at));
    }
    withLetterReferencesResolved(QString::fromLatin1(text.data(), static_cast<qsizetype>(size)));
    const std::string valid = utf8::fromLatin1(text);
    requireUtf8(plainText(valid));
    requireUtf8(givenback::article(text));
    requireUtf8(givenback::description(text));
    return 0;
}
