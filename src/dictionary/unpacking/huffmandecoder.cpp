// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/huffmandecoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/huffmantable.h"
#include "dictionary/unpacking/outputwindow.h"

#include <bit>

namespace teskel
{

namespace
{
constexpr int wrapWarningLine = 335;

// The code tables of one block.
struct HuffmanTables {
    HuffmanTable<12, arj::charCodes> characters;
    HuffmanTable<8, arj::positionCodes> positions;
    HuffmanTable<8, arj::lengthCodes> lengths;

    static constexpr unsigned noLength = HuffmanTable<8, arj::lengthCodes>::noSymbol;
};

// A character code, a position code and the position's own bits.
static_assert(2 * arj::maxCodeLength + arj::positionCodes - 2 <= 56, "one refill serves a match");

// The length of one code of the position or length alphabet: three bits, and from 7 on as many one
// bits as it is longer than 7, ended by a zero bit.
unsigned readCodeLength(BitWindow& window)
{
    window.need(32);
    unsigned length = window.peek(3);
    if (length < 7) {
        window.drop(3);
        return length;
    }
    length += static_cast<unsigned>(std::countl_one(window.bits() << 3));
    window.drop(length <= arj::maxCodeLength ? length - 3 : 0);
    return length;
}

// Reads the code of the positions, or of the lengths in which the character code is written.
template<unsigned Symbols>
bool readSmallTable(BitWindow& window, HuffmanTable<8, Symbols>& table, unsigned countBits,
                    unsigned skipIndex)
{
    window.need(32);
    const unsigned count = window.take(countBits);
    if (count == 0) {
        table.setSingle(window.take(countBits));
        return true;
    }
    if (count > Symbols)
        return false;
    std::array<quint8, Symbols> lengths{};
    for (unsigned i = 0; i < count;) {
        const unsigned length = readCodeLength(window);
        if (length > arj::maxCodeLength)
            return false;
        lengths[i++] = static_cast<quint8>(length);
        if (i == skipIndex) {
            window.need(2);
            i += window.take(2);
        }
    }
    return table.build(lengths);
}

// Reads the code of the characters, whose lengths are themselves coded, with runs of zeros.
bool readCharacterTable(BitWindow& window, HuffmanTables& tables)
{
    window.need(32);
    const unsigned count = window.take(arj::charCountBits);
    if (count == 0) {
        tables.characters.setSingle(window.take(arj::charCountBits));
        return true;
    }
    if (count > arj::charCodes)
        return false;
    std::array<quint8, arj::charCodes> lengths{};
    for (unsigned i = 0; i < count;) {
        window.need(32);
        const unsigned code = tables.lengths.decode(window);
        unsigned zeros = 1;
        switch (code) {
        case 0:
            break;
        case 1:
            zeros = window.take(4) + 3;
            break;
        case 2:
            zeros = window.take(arj::charCountBits) + 20;
            break;
        case HuffmanTables::noLength:
            return false;
        default:
            lengths[i++] = static_cast<quint8>(code - 2);
            continue;
        }
        i += zeros;
        if (i > arj::charCodes)
            return false;
    }
    return tables.characters.build(lengths);
}

bool readTables(BitWindow& window, HuffmanTables& tables)
{
    return readSmallTable(window, tables.lengths, arj::lengthCountBits, arj::lengthSkipIndex) &&
           readCharacterTable(window, tables) &&
           readSmallTable(window, tables.positions, arj::positionCountBits, arj::positionCodes + 1);
}
} // namespace

MemberStatus decodeHuffman(CBitBuffer& bits, OutputWindow& output)
{
    HuffmanTables tables; // set by the block with which each stream begins
    BitWindow window = bits.window();
    MemberStatus status = MemberStatus::Ok;
    quint16 codesLeft = 0;
    while (!output.isFull()) {
        if (codesLeft == 0) {
            window.need(arj::blockSizeBits);
            codesLeft = static_cast<quint16>(window.take(arj::blockSizeBits));
            if (!readTables(window, tables)) {
                status = MemberStatus::BadCodes;
                break;
            }
        }
        --codesLeft; // a block said to have no codes has 65,536
        window.refill();
        const unsigned code = tables.characters.decode(window);
        if (code < arj::literalCount) {
            output.putLiteral(code);
            continue;
        }
        const unsigned width = tables.positions.decode(window);
        if (code >= arj::charCodes || width >= arj::positionCodes) {
            status = MemberStatus::BadCodes;
            break;
        }
        const unsigned position = width == 0 ? 0 : (1U << (width - 1)) + window.take(width - 1);
        output.putMatch(position + 1, code - arj::literalCount + arj::threshold, wrapWarningLine);
    }
    bits.setWindow(window);
    return status;
}

} // namespace teskel
