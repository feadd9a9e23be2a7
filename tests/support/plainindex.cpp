// SPDX-License-Identifier: MIT
#include "tests/support/plainindex.h"

namespace teskel::test
{

namespace
{
int fold(char letter)
{
    const int byte = static_cast<unsigned char>(letter);
    const bool isSmall = (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE);
    return isSmall && byte != 0xF7 ? byte - 0x20 : byte;
}

/// Ends with a NUL: no key, and no word, has one within.
int byteAt(const QByteArray& text, std::size_t at)
{
    return at < static_cast<std::size_t>(text.size()) ? fold(text.at(static_cast<qsizetype>(at)))
                                                      : 0;
}

bool isBelow(const QByteArray& key, const QByteArray& word, std::size_t length)
{
    for (std::size_t at = 0; at < length; ++at) {
        if (byteAt(key, at) != byteAt(word, at))
            return byteAt(key, at) < byteAt(word, at);
        if (byteAt(key, at) == 0)
            return false;
    }
    return false;
}
} // namespace

PlainIndex::PlainIndex(const QByteArray& bytes)
{
    for (qsizetype at = 0; at < bytes.size() && bytes.at(at) != '\0';) {
        const qsizetype end = bytes.indexOf('\0', at);
        _keys.append(bytes.mid(at, end < 0 ? -1 : end - at));
        at = end < 0 ? bytes.size() : end + 1;
    }
}

int PlainIndex::recordFor(const QByteArray& word, std::size_t length) const
{
    int below = 0;
    while (below < _keys.size() && isBelow(_keys.at(below), word, length))
        ++below;
    return below == 0 ? 0 : below - 1;
}

} // namespace teskel::test
