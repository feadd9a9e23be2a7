// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/huffmandecoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/blocktables.h"
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/outputwindow.h"
#include "dictionary/unpacking/steploop.h"

namespace teskel
{

namespace
{
constexpr unsigned mostCodes = 1U << arj::blockSizeBits; // of a block said to have none

// A character code, a position code and the position's own bits.
static_assert(2 * arj::maxCodeLength + arj::maxOwnBits <= 56, "one refill serves a match");

// The codes of one block.
class BlockCodes
{
public:
    static constexpr unsigned positionBase = 1;
    static constexpr int wrapWarningLine = 335;

    // Reads the beginning of a block; false when its tables are damaged.
    bool start(BitWindow& window)
    {
        window.need(arj::blockSizeBits);
        const unsigned count = window.take(arj::blockSizeBits);
        _left = count == 0 ? mostCodes : count;
        return _tables.read(window);
    }

    [[nodiscard]] const step::Step* steps() const { return _tables.steps().data(); }
    [[nodiscard]] unsigned left() const { return _left; }
    void count(unsigned codes) { _left -= codes; }

    [[nodiscard]] Source sourceAt(quint64 bits) const
    {
        const CodeEntry code = _tables.positions().find(bits);
        if (code.symbol >= arj::positionCodes)
            return {};
        return {distance(code.symbol, bits << code.length),
                code.length + arj::ownBits(code.symbol)};
    }

    bool readCode(BitWindow& window, OutputWindow& output) const
    {
        const CodeEntry character = _tables.characters().find(window.bits());
        window.drop(character.length);
        if (character.symbol < arj::literalCount) {
            output.putLiteral(character.symbol);
            return true;
        }
        const CodeEntry position = _tables.positions().find(window.bits());
        window.drop(position.length);
        if (character.symbol >= arj::charCodes || position.symbol >= arj::positionCodes)
            return false;
        output.putMatch(distance(position.symbol, window.bits()),
                        arj::matchLength(character.symbol), wrapWarningLine);
        window.drop(arj::ownBits(position.symbol));
        return true;
    }

private:
    // Of a position whose own bits are at the top of `bits`.
    static unsigned distance(unsigned symbol, quint64 bits)
    {
        const unsigned own = arj::ownBits(symbol);
        const auto ownValue = static_cast<unsigned>(bits >> 1 >> (63 - own));
        return symbol == 0 ? 1 : positionBase + (1U << own) + ownValue;
    }

    BlockTables _tables;
    unsigned _left = 0;
};
} // namespace

MemberStatus decodeHuffman(CBitBuffer& bits, OutputWindow& output)
{
    BlockCodes codes;
    BitWindow window = bits.window();
    MemberStatus status = MemberStatus::Ok;
    while (status == MemberStatus::Ok && !output.isFull()) {
        if (!codes.start(window) || !decodeCodes(window, output, codes))
            status = MemberStatus::BadCodes;
    }
    bits.setWindow(window);
    return status;
}

} // namespace teskel
