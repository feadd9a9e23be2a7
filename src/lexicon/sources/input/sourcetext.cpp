// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/sourcetext.h"

#include "lexicon/sources/input/encodingguess.h"
#include "lexicon/text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace teskel
{

namespace
{

/// What is kept to tell the encoding by, bytes: around a place, and altogether.
constexpr size_t sampleReach = 200;
constexpr size_t largestSample = 1U << 16;

} // namespace

std::string inHexadecimal(char byte)
{
    std::array<char, 8> number{};
    std::snprintf(number.data(), number.size(), "0x%02X", static_cast<unsigned char>(byte));
    return number.data();
}

void SourceText::setOptions(const EncodingOptions& options)
{
    _options = options;
    if (!options.name.empty())
        _decoder.emplace(options.name);
}

std::string_view SourceText::decoded(std::string_view bytes, std::string_view where,
                                     std::string_view part)
{
    if (_decoder) {
        _text.clear();
        _decoder->decode(bytes, _text);
        _decoder->finish(_text);
        bytes = _text;
    }
    check(bytes, where, part);
    return bytes;
}

void SourceText::check(std::string_view text, std::string_view where, std::string_view part)
{
    _sampledTo = 0;
    for (size_t place = utf8::wellFormedLength(text); place < text.size();
         place += 1 + utf8::wellFormedLength(text.substr(place + 1)))
        noteInvalid(text, place, place, std::string(where).append(part));
}

void SourceText::checkNext(std::string_view text, std::string_view file)
{
    std::string joined;
    if (!_cut.empty()) {
        joined = std::exchange(_cut, {}).append(text);
        text = joined;
    }
    _sampledTo = 0;
    const auto pass = [this](std::string_view passed) {
        _line += static_cast<uint64_t>(std::count(passed.begin(), passed.end(), '\n'));
        const size_t lineEnd = passed.rfind('\n');
        _column = lineEnd == std::string_view::npos ? _column + passed.size()
                                                    : passed.size() - lineEnd - 1;
    };
    for (size_t begin = 0; begin < text.size();) {
        const size_t length = utf8::wellFormedLength(text.substr(begin));
        pass(text.substr(begin, length));
        begin += length;
        const std::string_view rest = text.substr(begin);
        if (utf8::isCut(rest)) {
            _cut = rest;
            return;
        }
        if (!rest.empty())
            noteInvalid(text, begin, _column, std::string(file) + ':' + std::to_string(_line));
        pass(rest.substr(0, 1));
        ++begin;
    }
}

void SourceText::checkEnd(std::string_view file)
{
    _sampledTo = 0;
    if (!_cut.empty())
        noteInvalid(_cut, 0, _column, std::string(file) + ':' + std::to_string(_line));
    _cut.clear();
}

void SourceText::noteInvalid(std::string_view text, size_t place, size_t column, std::string where)
{
    if (_first.empty()) {
        _first = std::move(where);
        // The bytes of another encoding are not those of the file any more.
        _first += _decoder ? ": a byte is not " + _options.name
                           : ": byte " + std::to_string(column + 1) + " (" +
                                 inHexadecimal(text[place]) + ") is no UTF-8";
    }
    if (_sample.size() >= largestSample || place < _sampledTo)
        return;
    const size_t begin = std::max(place - std::min(place, sampleReach), _sampledTo);
    if (begin > _sampledTo || begin == 0)
        _sample += '\n';
    _sampledTo = place + sampleReach;
    _sample += text.substr(begin, _sampledTo - begin);
}

bool SourceText::isAccepted(bool canReplace, std::string& error) const
{
    if (_options.replacesInvalid || _first.empty())
        return true;
    error = _first;
    if (!_decoder) {
        const EncodingGuess guess = guessEncoding(_sample);
        error += guess.isSure ? "; it may be " : "; perhaps it is ";
        error += guess.name + ", which --encoding " + guess.name + " reads";
        for (const std::string& other : guess.others)
            error += ", or " + other;
    }
    if (canReplace)
        error += "; --invalid-utf8 replace shows such bytes as unknown";
    return false;
}

} // namespace teskel
