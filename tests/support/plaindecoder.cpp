// SPDX-License-Identifier: MIT
#include "tests/support/plaindecoder.h"

#include <QList>

#include <array>

namespace teskel::test
{

namespace
{
class PlainDecoder
{
public:
    PlainDecoder(const QByteArray& packed, quint32 claimed, int size)
        : _packed(packed)
        , _claimed(claimed)
        , _size(size)
    {
        _result.output.reserve(size);
    }

    PlainResult runStatic();
    PlainResult runFastest();

private:
    // The symbols in the order of their codes, and how many there are of each length.
    struct Code {
        std::array<int, 17> counts{};
        QList<int> symbols;
    };

    int bit()
    {
        const quint64 index = _result.bitsRead / 8;
        const int shift = 7 - static_cast<int>(_result.bitsRead % 8);
        ++_result.bitsRead;
        if (index >= _claimed)
            return 0;
        if (index >= static_cast<quint64>(_packed.size()))
            return 1;
        return static_cast<quint8>(_packed.at(static_cast<qsizetype>(index))) >> shift & 1;
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
    static bool makeCode(const QList<int>& lengths, Code& code);
    static void makeSingle(int symbol, int symbols, Code& code);
    bool readSmall(int symbols, int skipIndex, Code& code);
    bool readCharacters(const Code& lengthCode, Code& code);
    int symbol(const Code& code);
    int fastNumber(int width, int lastWidth);

    QByteArray _packed;
    quint64 _claimed;
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
    code = {};
    qint64 space = 0;
    for (int length = 1; length <= 16; ++length) {
        for (qsizetype i = 0; i < lengths.size(); ++i) {
            if (lengths.at(i) == length) {
                code.symbols.append(static_cast<int>(i));
                ++code.counts[static_cast<std::size_t>(length)];
                space += 1LL << (16 - length);
            }
        }
    }
    return space == 0 || space == 65536;
}

void PlainDecoder::makeSingle(int symbol, int symbols, Code& code)
{
    code = {};
    if (symbol >= symbols)
        return;
    code.symbols = {symbol};
    code.counts[0] = 1;
}

bool PlainDecoder::readSmall(int symbols, int skipIndex, Code& code)
{
    const int count = number(5);
    if (count == 0) {
        makeSingle(number(5), symbols, code);
        return true;
    }
    if (count > symbols)
        return false;
    QList<int> lengths;
    while (lengths.size() < count) {
        const quint64 start = _result.bitsRead;
        int length = number(3);
        if (length == 7) {
            while (length <= 16 && bit() != 0)
                ++length;
        }
        if (length > 16) {
            _result.bitsRead = start;
            return false;
        }
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
        makeSingle(number(9), 510, code);
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

// -1 where no code stands.
int PlainDecoder::symbol(const Code& code)
{
    const quint64 start = _result.bitsRead;
    int bits = 0;
    int firstCode = 0; // of this length
    int firstIndex = 0;
    for (const int count : code.counts) {
        if (bits - firstCode < count)
            return code.symbols.at(firstIndex + bits - firstCode);
        firstIndex += count;
        firstCode = (firstCode + count) * 2;
        bits = bits * 2 + bit();
    }
    _result.bitsRead = start;
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
        const int width = symbol(positionCode);
        if (c < 0 || width < 0) {
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

PlainResult decodePlainly(int method, const QByteArray& packed, quint32 claimed, int size)
{
    PlainDecoder decoder(packed, claimed, size);
    return method == 4 ? decoder.runFastest() : decoder.runStatic();
}

} // namespace teskel::test
