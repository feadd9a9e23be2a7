// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/encodingguess.h"

#include <algorithm>
#include <cctype>
#include <memory>

#include <unicode/ucsdet.h>

using namespace std::string_view_literals;

namespace teskel
{

namespace
{

constexpr unsigned firstBeyondAscii = 0x80;
constexpr unsigned lastControl = 0x9F; // of those beyond ASCII

/// Empty when ICU does not know.
std::string detected(std::string_view text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&status),
                                                                              ucsdet_close);
    ucsdet_setText(detector.get(), text.data(), static_cast<int32_t>(text.size()), &status);
    const UCharsetMatch* match = ucsdet_detect(detector.get(), &status);
    const char* name = match ? ucsdet_getName(match, &status) : nullptr;
    if (U_FAILURE(status) || !name || std::string_view(name).starts_with("UTF-"))
        return {};
    std::string encoding(name);
    std::transform(encoding.begin(), encoding.end(), encoding.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return encoding;
}

/// Whether more than half of the bytes at even (0) or odd (1) places are zeros, and no others.
bool hasZerosAt(std::string_view text, size_t first)
{
    size_t zeros = 0;
    size_t others = 0;
    for (size_t place = 0; place < text.size(); ++place) {
        if (text[place] == '\0')
            ++(place % 2 == first ? zeros : others);
    }
    return zeros * 4 > text.size() && others == 0;
}

} // namespace

std::string_view utf16Of(std::string_view head)
{
    if (head.starts_with("\xFF\xFE"))
        return "utf-16le";
    if (head.starts_with("\xFE\xFF"))
        return "utf-16be";
    if (hasZerosAt(head, 1))
        return "utf-16le";
    return hasZerosAt(head, 0) ? "utf-16be"sv : ""sv;
}

std::string encodingOf(std::string_view text)
{
    size_t letters = 0;
    size_t beyondAscii = 0;
    size_t controls = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isBeyond = byte >= firstBeyondAscii;
        beyondAscii += isBeyond ? 1 : 0;
        controls += isBeyond && byte <= lastControl ? 1 : 0;
        letters += !isBeyond && std::isalpha(byte) != 0 ? 1 : 0;
    }
    if (beyondAscii > letters) {
        if (std::string encoding = detected(text); !encoding.empty())
            return encoding;
    }
    return controls > 0 ? "windows-1252" : "latin1";
}

} // namespace teskel
