// SPDX-License-Identifier: MIT
#include "tests/dictionary/plaindecoder.h"

#include <QList>
#include <QMap>
#include <QPair>

namespace teskel::test
{

namespace
{
class PlainDecoder
{
public:
    PlainDecoder(const QByteArray& packed, int size)
        : _packed(packed)
        , _size(size)
    {
    }

    PlainResult runStatic();
    PlainResult runFastest();

private:
    // From (length, bits) to symbol; the key (0, 0) stands for a code of one symbol.
    using Code = QMap<QPair<int, int>, int>;

    int bit()
    {
        const auto index = static_cast<qsizetype>(_result.bitsRead / 8);
        const int shift = 7 - static_cast<int>(_result.bitsRead % 8);
        ++_result.bitsRead;
        return index < _packed.size() ? static_cast<quint8>(_packed.at(index)) >> shift & 1 : 0;
    }
    int number(int width)
    {
        int value = 0;
        while (width-- > 0)
            value = value << 1 | bit();
        return value;
    }
    bool full() const { return _result.output.size() >= _size; }
    void put(int byte) { _result.output.append(static_cast<char>(byte)); }
    void copy(int position, int length);
    bool makeCode(const QList<int>& lengths, Code& code);
    bool readSmall(int symbols, int skipIndex, Code& code);
    bool readCharacters(const Code& lengthCode, Code& code);
    int symbol(const Code& code);
    int fastNumber(int width, int lastWidth);

    QByteArray _packed;
    int _size;
    PlainResult _result;
};

void PlainDecoder::copy(int position, int length)
{
    auto source = static_cast<int>(_result.output.size()) - position - 1;
    if (source < 0) {
        source += 32000;
        ++_result.wraps;
    }
    for (; length > 0 && !full(); --length, ++source)
        put(source >= 0 && source < _result.output.size() ? _result.output.at(source) : 0);
}

// False unless the codes fill the space of 16 bits or there are none.
bool PlainDecoder::makeCode(const QList<int>& lengths, Code& code)
{
    code.clear();
    int next = 0;
    qint64 space = 0;
    for (int length = 1; length <= 16; ++length) {
        next <<= 1;
        for (qsizetype i = 0; i < lengths.size(); ++i) {
            if (lengths.at(i) == length) {
                code.insert({length, next++}, static_cast<int>(i));
                space += 1LL << (16 - length);
            }
        }
    }
    return space == 0 || space == 65536;
}

bool PlainDecoder::readSmall(int symbols, int skipIndex, Code& code)
{
    const int count = number(5);
    if (count == 0) {
        code = {{{0, 0}, number(5)}};
        if (code.first() >= symbols)
            code.clear();
        return true;
    }
    if (count > symbols)
        return false;
    QList<int> lengths;
    while (lengths.size() < count) {
        int length = number(3);
        if (length == 7) {
            while (length <= 16 && bit() != 0)
                ++length;
        }
        if (length > 16)
            return false;
        lengths.append(length);
        if (lengths.size() == skipIndex)
            lengths += QList<int>(number(2), 0);
    }
    return makeCode(lengths, code);
}

bool PlainDecoder::readCharacters(const Code& lengthCode, Code& code)
{
    const int count = number(9);
    if (count == 0) {
        code = {{{0, 0}, number(9)}};
        if (code.first() >= 510)
            code.clear();
        return true;
    }
    if (count > 510)
        return false;
    QList<int> lengths;
    while (lengths.size() < count) {
        const int c = symbol(lengthCode);
        if (c < 0)
            return false;
        if (c == 0)
            lengths.append(0);
        else if (c == 1)
            lengths += QList<int>(number(4) + 3, 0);
        else if (c == 2)
            lengths += QList<int>(number(9) + 20, 0);
        else
            lengths.append(c - 2);
        if (lengths.size() > 510)
            return false;
    }
    return makeCode(lengths, code);
}

int PlainDecoder::symbol(const Code& code)
{
    int bits = 0;
    for (int length = 0; length <= 16; ++length) {
        const auto found = code.constFind({length, bits});
        if (found != code.constEnd())
            return *found;
        if (length < 16 && !code.isEmpty())
            bits = bits << 1 | bit();
    }
    return -1;
}

PlainResult PlainDecoder::runStatic()
{
    Code lengthCode;
    Code characterCode;
    Code positionCode;
    int codesLeft = 0;
    while (!full()) {
        if (codesLeft == 0) {
            codesLeft = number(16);
            if (codesLeft == 0)
                codesLeft = 65536;
            _result.hasGoodTables = readSmall(19, 3, lengthCode) &&
                                    readCharacters(lengthCode, characterCode) &&
                                    readSmall(17, -1, positionCode);
            if (!_result.hasGoodTables)
                break;
        }
        --codesLeft;
        const int c = symbol(characterCode);
        if (c >= 0 && c < 256) {
            put(c);
            continue;
        }
        const int width = c < 0 ? -1 : symbol(positionCode);
        if (width < 0) {
            _result.hasGoodTables = false;
            break;
        }
        copy(width == 0 ? 0 : (1 << (width - 1)) + number(width - 1), c - 253);
    }
    return _result;
}

int PlainDecoder::fastNumber(int width, int lastWidth)
{
    int base = 0;
    for (int power = 1 << width; width < lastWidth && bit() != 0; ++width, power <<= 1)
        base += power;
    return base + number(width);
}

PlainResult PlainDecoder::runFastest()
{
    while (!full()) {
        const int length = fastNumber(0, 7);
        if (length == 0)
            put(number(8));
        else
            copy(fastNumber(9, 13), length + 2);
    }
    return _result;
}
} // namespace

PlainResult decodePlainly(int method, const QByteArray& packed, int size)
{
    PlainDecoder decoder(packed, size);
    return method == 4 ? decoder.runFastest() : decoder.runStatic();
}

} // namespace teskel::test
