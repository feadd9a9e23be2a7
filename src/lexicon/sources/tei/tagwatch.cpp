// SPDX-License-Identifier: MIT
#include "lexicon/sources/tei/tagwatch.h"

#include <algorithm>

namespace teskel
{

bool TagWatch::look(std::string_view bytes)
{
    for (const char byte : bytes) {
        if (_attributes > mostAttributes)
            break;
        if (byte != '\0') // of text in wider units
            take(byte);
    }
    return _attributes <= mostAttributes;
}

void TagWatch::enter(State state)
{
    _state = state;
    _length = 0;
}

/// Whether the bytes that were looked at end so; with four bytes at most.
bool TagWatch::endsWith(std::string_view end) const
{
    uint32_t wanted = 0;
    uint32_t mask = 0;
    for (const char byte : end) {
        wanted = wanted << 8 | static_cast<unsigned char>(byte);
        mask = mask << 8 | 0xFF;
    }
    return (_last & mask) == wanted;
}

void TagWatch::take(char byte)
{
    constexpr int longestEnd = 3;
    _last = _last << 8 | static_cast<unsigned char>(byte);
    _length = std::min(_length + 1, longestEnd);
    _line += byte == '\n' ? 1 : 0;
    switch (_state) {
    case State::Text:
        if (byte == '<') {
            enter(State::Tag);
            _attributes = 0;
        }
        break;
    case State::Tag:
        takeMarkup(byte);
        break;
    case State::Declaration:
        takeDeclaration(byte);
        break;
    case State::Comment:
        if (_length == longestEnd && endsWith("-->"))
            enter(_around);
        break;
    case State::Characters:
        if (endsWith("]]>"))
            enter(State::Text);
        break;
    case State::Instruction:
        if (_length > 1 && endsWith("?>"))
            enter(_around);
        break;
    }
}

void TagWatch::takeMarkup(char byte)
{
    const bool isFirst = _length == 1;
    if (isFirst && byte == '!') {
        enter(State::Declaration);
        _isSubset = false;
    } else if (isFirst && byte == '?') {
        _around = State::Text;
        enter(State::Instruction);
    } else if (_quote != '\0') {
        _attributes += byte == _quote ? 1 : 0;
        _quote = byte == _quote ? '\0' : _quote;
    } else if (byte == '"' || byte == '\'') {
        _quote = byte;
    } else if (byte == '>') {
        enter(State::Text);
    }
}

/// "<!" begins a comment, characters that are no markup, or a declaration; of a document type, with
/// others in brackets.
void TagWatch::takeDeclaration(char byte)
{
    if (_quote != '\0') {
        _quote = byte == _quote ? '\0' : _quote;
    } else if (byte == '"' || byte == '\'') {
        _quote = byte;
    } else if (endsWith("<!--") || endsWith("<?")) {
        _around = _isSubset ? State::Declaration : State::Text;
        enter(byte == '-' ? State::Comment : State::Instruction);
    } else if (endsWith("<![")) {
        enter(State::Characters);
    } else if (byte == '[') {
        _isSubset = true;
    } else if (byte == ']') {
        _isSubset = false;
    } else if (byte == '>' && !_isSubset) {
        enter(State::Text);
    }
}

} // namespace teskel
