// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/huffmandecoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/huffmantable.h"
#include "dictionary/unpacking/outputwindow.h"
#include "dictionary/unpacking/steploop.h"
#include "dictionary/unpacking/steptable.h"

#include <bit>

namespace teskel
{

namespace
{
constexpr int wrapWarningLine = 335;

// The code tables of one block.
struct HuffmanTables {
    CharacterCode characters;
    HuffmanTable<arj::positionCodes> positions;
    HuffmanTable<arj::lengthCodes> lengths;
    StepTable steps; // of characters and positions

    static constexpr unsigned noLength = HuffmanTable<arj::lengthCodes>::noSymbol;
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
bool readSmallTable(BitWindow& window, HuffmanTable<Symbols>& table, unsigned countBits,
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
    CodeLengths<Symbols> lengths;
    for (unsigned i = 0; i < count;) {
        const unsigned length = readCodeLength(window);
        if (length > arj::maxCodeLength)
            return false;
        lengths.add(i++, length);
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
        tables.characters.assignSingle(window.take(arj::charCountBits));
        return true;
    }
    if (count > arj::charCodes)
        return false;
    CodeLengths<arj::charCodes> lengths;
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
            lengths.add(i++, code - 2);
            continue;
        }
        i += zeros;
        if (i > arj::charCodes)
            return false;
    }
    return tables.characters.assign(lengths);
}

Q_NEVER_INLINE bool readTables(BitWindow& window, HuffmanTables& tables)
{
    if (!readSmallTable(window, tables.lengths, arj::lengthCountBits, arj::lengthSkipIndex) ||
        !readCharacterTable(window, tables) ||
        !readSmallTable(window, tables.positions, arj::positionCountBits, arj::positionCodes + 1))
        return false;
    tables.steps.build(tables.characters, tables.positions.code());
    return true;
}

// Bits of a position that are written behind its code: all but the topmost.
constexpr unsigned ownBits(unsigned symbol)
{
    return symbol == 0 ? 0 : symbol - 1;
}

// The distance of a position whose own bits are at the top of `bits`.
constexpr unsigned distanceOf(unsigned symbol, quint64 bits)
{
    const unsigned own = ownBits(symbol);
    return symbol == 0 ? 1 : (1U << own) + static_cast<unsigned>(bits >> 1 >> (63 - own)) + 1;
}

// What runSteps() needs to know of a block.
class BlockCodes
{
public:
    static constexpr int positionBase = 1;

    BlockCodes(const HuffmanTables& tables, unsigned left)
        : _tables(tables)
        , _left(left)
    {
    }
    [[nodiscard]] const step::Step* table() const { return _tables.steps.steps(); }
    [[nodiscard]] bool areLeft() const { return _left >= 2; }
    void count(unsigned codes) { _left -= codes; }
    [[nodiscard]] Position positionAt(quint64 bits) const
    {
        const auto found = _tables.positions.find(bits);
        if (found.symbol >= arj::positionCodes)
            return {};
        return {distanceOf(found.symbol, bits << found.length),
                found.length + ownBits(found.symbol)};
    }
    [[nodiscard]] unsigned left() const { return _left; }

private:
    const HuffmanTables& _tables;
    unsigned _left;
};

constexpr unsigned mostCodes = 1U << arj::blockSizeBits; // of a block said to have none

Q_NEVER_INLINE bool readCode(BitWindow& window, OutputWindow& output, const HuffmanTables& tables)
{
    window.refill();
    const auto character = tables.characters.find(window.bits());
    window.drop(character.length);
    if (character.symbol < arj::literalCount) {
        output.putLiteral(character.symbol);
        return true;
    }
    const unsigned position = tables.positions.decode(window);
    if (character.symbol >= arj::charCodes || position >= arj::positionCodes)
        return false;
    const unsigned distance = distanceOf(position, window.bits());
    window.drop(ownBits(position));
    output.putMatch(distance, arj::matchLength(character.symbol), wrapWarningLine);
    return true;
}
} // namespace

MemberStatus decodeHuffman(CBitBuffer& bits, OutputWindow& output)
{
    HuffmanTables tables; // set by the block with which each stream begins
    BitWindow window = bits.window();
    MemberStatus status = MemberStatus::Ok;
    unsigned codesLeft = 0;
    while (!output.isFull()) {
        if (codesLeft == 0) {
            window.need(arj::blockSizeBits);
            codesLeft = window.take(arj::blockSizeBits);
            if (codesLeft == 0)
                codesLeft = mostCodes;
            if (!readTables(window, tables)) {
                status = MemberStatus::BadCodes;
                break;
            }
        }
        BlockCodes codes(tables, codesLeft);
        runSteps(window, output, codes);
        codesLeft = codes.left();
        if (codesLeft == 0)
            continue;
        --codesLeft;
        if (!readCode(window, output, tables)) {
            status = MemberStatus::BadCodes;
            break;
        }
    }
    bits.setWindow(window);
    return status;
}

} // namespace teskel
