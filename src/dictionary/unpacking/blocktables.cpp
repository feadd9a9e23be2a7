// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/blocktables.h"

#include "dictionary/unpacking/bitwindow.h"

#include <bit>

namespace teskel
{

namespace
{
// The code in which the lengths of the character code are written.
using LengthTable = HuffmanTable<arj::lengthCodes>;

constexpr unsigned neverSkip = arj::positionCodes + 1;

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
bool readCharacters(BitWindow& window, const LengthTable& codeLengths, CharacterCode& characters)
{
    window.need(32);
    const unsigned count = window.take(arj::charCountBits);
    if (count == 0) {
        characters.assignSingle(window.take(arj::charCountBits));
        return true;
    }
    if (count > arj::charCodes)
        return false;
    CodeLengths<arj::charCodes> lengths;
    for (unsigned i = 0; i < count;) {
        window.need(32);
        const unsigned code = codeLengths.decode(window);
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
        case LengthTable::noSymbol:
            return false;
        default:
            lengths.add(i++, code - 2);
            continue;
        }
        i += zeros;
        if (i > arj::charCodes)
            return false;
    }
    return characters.assign(lengths);
}

} // namespace

bool BlockTables::read(BitWindow& window)
{
    LengthTable lengths;
    if (!readSmallTable(window, lengths, arj::lengthCountBits, arj::lengthSkipIndex) ||
        !readCharacters(window, lengths, _characters) ||
        !readSmallTable(window, _positions, arj::positionCountBits, neverSkip))
        return false;
    _steps.build(_characters, _positions.code());
    return true;
}

} // namespace teskel
