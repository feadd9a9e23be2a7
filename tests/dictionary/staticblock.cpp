// SPDX-License-Identifier: MIT
#include "tests/dictionary/staticblock.h"

#include <bit>

namespace teskel::test
{

namespace
{
constexpr int maxLength = 16;

int positionSymbol(int distance)
{
    return static_cast<int>(std::bit_width(static_cast<unsigned>(distance - 1)));
}

// A code over all 19 symbols in which code lengths are written.
CodeLengths lengthAlphabet()
{
    return CodeLengths(13, 4) + CodeLengths(6, 5);
}
} // namespace

QList<PrefixCode> canonicalCodes(const CodeLengths& lengths)
{
    QList<PrefixCode> codes(lengths.size());
    quint32 next = 0;
    for (int length = 1; length <= maxLength; ++length) {
        next <<= 1;
        for (qsizetype symbol = 0; symbol < lengths.size(); ++symbol) {
            if (lengths.at(symbol) == length)
                codes[symbol] = {next++, length};
        }
    }
    return codes;
}

CodeLengths randomLengths(QRandomGenerator& generator, int symbols, int used)
{
    QList<int> leaves = {0};
    while (leaves.size() < used) {
        // Mostly the last leaf again, so that long codes come up.
        const auto leaf = generator.bounded(3) != 0
                              ? leaves.size() - 1
                              : generator.bounded(static_cast<int>(leaves.size()));
        if (leaves.at(leaf) == maxLength) {
            leaves.move(leaf, 0);
            continue;
        }
        ++leaves[leaf];
        leaves.append(leaves.at(leaf));
    }
    CodeLengths lengths(symbols, 0);
    while (!leaves.isEmpty()) {
        const int symbol = generator.bounded(symbols);
        if (lengths.at(symbol) == 0)
            lengths[symbol] = leaves.takeLast();
    }
    return lengths;
}

void putSmallTable(BitWriter& bits, const CodeLengths& lengths, int skipIndex)
{
    qsizetype count = lengths.size();
    while (count > 0 && lengths.at(count - 1) == 0)
        --count;
    bits.put(static_cast<quint32>(count), 5);
    for (qsizetype i = 0; i < count;) {
        const int length = lengths.at(i++);
        if (length < 7) {
            bits.put(static_cast<quint32>(length), 3);
        } else {
            bits.put("111");
            for (int more = 7; more < length; ++more)
                bits.put("1");
            bits.put("0");
        }
        if (i == skipIndex) {
            quint32 zeros = 0;
            for (; zeros < 3 && i < count && lengths.at(i) == 0; ++i)
                ++zeros;
            bits.put(zeros, 2);
        }
    }
}

void putSingle(BitWriter& bits, quint32 symbol, int countBits)
{
    bits.put(0, countBits).put(symbol, countBits);
}

void StaticBlock::literal(quint8 byte)
{
    putCode(_characterCodes.at(byte));
    ++_codeCount;
}

void StaticBlock::match(int length, int distance)
{
    const int symbol = positionSymbol(distance);
    putCode(_characterCodes.at(length + 253));
    putCode(_positionCodes.at(symbol));
    if (symbol > 1) {
        const auto rest = static_cast<quint32>(distance - 1) - (1U << (symbol - 1));
        _content.append({rest, symbol - 1});
    }
    ++_codeCount;
}

bool StaticBlock::canMatch(int length, int distance) const
{
    return _characters.at(length + 253) != 0 && _positions.at(positionSymbol(distance)) != 0;
}

void StaticBlock::writeTo(BitWriter& bits) const
{
    bits.put(static_cast<quint32>(_codeCount), 16);
    writeTables(bits);
    for (const PrefixCode& code : _content)
        bits.put(code.bits, code.length);
}

void StaticBlock::writeTables(BitWriter& bits) const
{
    putSmallTable(bits, lengthAlphabet(), 3);
    putCharacterTable(bits);
    putSmallTable(bits, _positions, -1);
}

void StaticBlock::putCharacterTable(BitWriter& bits) const
{
    const QList<PrefixCode> codes = canonicalCodes(lengthAlphabet());
    const auto put = [&](int symbol) { bits.put(codes.at(symbol).bits, codes.at(symbol).length); };
    qsizetype count = _characters.size();
    while (count > 0 && _characters.at(count - 1) == 0)
        --count;
    bits.put(static_cast<quint32>(count), 9);
    for (qsizetype i = 0; i < count;) {
        if (_characters.at(i) != 0) {
            put(_characters.at(i++) + 2);
            continue;
        }
        qsizetype zeros = 0;
        while (_characters.at(i + zeros) == 0)
            ++zeros;
        if (zeros >= 20) {
            put(2);
            bits.put(static_cast<quint32>(zeros - 20), 9);
        } else if (zeros >= 3) {
            zeros = qMin<qsizetype>(zeros, 18);
            put(1);
            bits.put(static_cast<quint32>(zeros - 3), 4);
        } else {
            zeros = 1;
            put(0);
        }
        i += zeros;
    }
}

} // namespace teskel::test
