// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/textdecoder.h"

#include "lexicon/sources/input/wideencoding.h"

#include <array>
#include <utility>

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace teskel
{

namespace
{

/// UTF-16 units that are converted at once.
constexpr size_t unitsAtOnce = 4096;

UConverter* opened(const std::string& name)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name.c_str(), &status);
    if (!converter)
        return nullptr;
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter, static_cast<UBool>(true));
    return converter;
}

void appendUtf16(std::u16string_view units, std::string& text)
{
    constexpr size_t mostBytesOfUnit = 3;
    constexpr UChar32 replacement = 0xFFFD;
    const size_t before = text.size();
    text.resize(before + units.size() * mostBytesOfUnit);
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(text.data() + before, static_cast<int32_t>(text.size() - before), &length,
                       units.data(), static_cast<int32_t>(units.size()), replacement, nullptr,
                       &status);
    text.resize(before + static_cast<size_t>(length));
}

/// Whether it leaves open which byte comes first.
bool isWithoutOrder(const std::string& name, std::string_view encoding)
{
    return ucnv_compareNames(name.c_str(), std::string(encoding).c_str()) == 0;
}

} // namespace

void TextDecoder::Closer::operator()(UConverter* converter) const
{
    ucnv_close(converter);
}

bool TextDecoder::isKnown(const std::string& name)
{
    return !name.empty() && std::unique_ptr<UConverter, Closer>(opened(name));
}

bool TextDecoder::isUtf8(const std::string& name)
{
    return ucnv_compareNames(name.c_str(), "utf-8") == 0;
}

bool TextDecoder::isOfBytes(const std::string& name)
{
    const std::unique_ptr<UConverter, Closer> converter(opened(name));
    return converter && ucnv_getMinCharSize(converter.get()) == 1;
}

TextDecoder::TextDecoder(std::string name)
    : _name(std::move(name))
{
}

void TextDecoder::open(std::string_view head)
{
    const std::string guess(wideEncodingOf(head));
    const bool isOpen = !guess.empty() && isWithoutOrder(_name, guess.substr(0, guess.size() - 2));
    _converter.reset(opened(isOpen ? guess : _name));
}

void TextDecoder::decode(std::string_view bytes, std::string& text)
{
    if (!_converter)
        open(bytes);
    convert(bytes, false, text);
}

void TextDecoder::finish(std::string& text)
{
    if (!_converter)
        return;
    convert({}, true, text);
    ucnv_reset(_converter.get());
    _units.clear();
}

/// Takes the units that are there over into `text`, but for the half of a character that may go on.
void TextDecoder::flush(bool mayGoOn, std::string& text)
{
    const bool isHalf = mayGoOn && !_units.empty() && U16_IS_LEAD(_units.back());
    const size_t count = _units.size() - (isHalf ? 1 : 0);
    appendUtf16(std::u16string_view(_units).substr(0, count), text);
    _units.erase(0, count);
}

void TextDecoder::convert(std::string_view bytes, bool isEnd, std::string& text)
{
    const char* next = bytes.data();
    const char* const end = bytes.data() + bytes.size();
    for (bool goesOn = true; goesOn;) {
        std::array<char16_t, unitsAtOnce> units;
        char16_t* put = units.data();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(_converter.get(), &put, units.data() + units.size(), &next, end, nullptr,
                       static_cast<UBool>(isEnd), &status);
        _units.append(units.data(), put);
        const bool isFull = status == U_BUFFER_OVERFLOW_ERROR;
        const bool isUndecodable = U_FAILURE(status) && !isFull;
        flush(!isUndecodable, text);
        if (isUndecodable)
            text += undecodable;
        goesOn = isFull || (isUndecodable && next < end);
    }
    if (isEnd)
        flush(false, text);
}

} // namespace teskel
