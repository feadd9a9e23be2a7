// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/steptable.h"

#include <algorithm>
#include <utility>

namespace teskel
{

namespace
{
using step::Step;

// What stands in the bits that are left behind a code: for each value of them, a number to be added
// to the code's step, or `nothing` if what stands there needs more bits.
template<Step nothing>
class Following
{
public:
    Following() = default;
    Q_DISABLE_COPY_MOVE(Following)
    ~Following() = default;

    // Fills the table for `left` bits, 0 to 11. `addend` tells what a symbol and the length of its
    // code add.
    template<unsigned Symbols, typename Addend>
    void fill(unsigned left, const CanonicalCode<Symbols>& code, Addend addend)
    {
        _size = std::size_t{1} << left;
        Step* slot = _addends;
        unsigned index = 0;
        for (unsigned length = 0; length <= left; ++length) {
            const unsigned run = 1U << (left - length);
            for (; index < code.countUpTo(length); ++index, slot += run)
                std::fill_n(slot, run, addend(code.symbolAt(index), length));
        }
        std::fill(slot, _addends + _size, nothing);
    }
    // Goes over to one bit less: what differs in that bit does not fit any more. Equal numbers are
    // always those of the same symbol.
    void halve()
    {
        _size /= 2;
        std::swap(_addends, _other);
        pairUp(_other, _addends, _size);
    }
    // Writes the steps of a code: as many as the bits left have values.
    Step* write(Step* target, Step code) const
    {
        add(code, _addends, target, _size);
        return target + _size;
    }

private:
    // The memory of both is apart, so that the compiler may take several steps at once.
    static void add(Step code, const Step* __restrict addends, Step* __restrict target,
                    std::size_t size)
    {
        for (std::size_t i = 0; i < size; ++i)
            target[i] = code + addends[i];
    }
    static void pairUp(const Step* __restrict from, Step* __restrict to, std::size_t size)
    {
        for (std::size_t i = 0; i < size; ++i)
            to[i] = from[2 * i] == from[2 * i + 1] ? from[2 * i] : nothing;
    }

    std::array<Step, step::tableSize / 2> _large;
    std::array<Step, step::tableSize / 4> _small;
    Step* _addends = _large.data();
    Step* _other = _small.data(); // scratch
    std::size_t _size = 0;
};

Step second(unsigned symbol, unsigned length)
{
    return symbol < arj::literalCount ? step::second(symbol, length) : 0;
}

Step position(unsigned symbol, unsigned length)
{
    return step::position(length, arj::ownBits(symbol), symbol == 0);
}

Step onlySymbolStep(unsigned symbol, unsigned length)
{
    return symbol < arj::literalCount
               ? step::literal(symbol, length)
               : step::match(arj::matchLength(symbol), length) + step::openFlag;
}
} // namespace

// Canonical codes ascend with their length, so the table fills from its start to its end. Behind
// codes of one length there are equally many bits left, and so the same is added.
void StepTable::build(const CharacterCode& characters, const PositionCode& positions)
{
    if (characters.countUpTo(0) > 0) {
        _steps.fill(onlySymbolStep(characters.symbolAt(0), 0)); // its code has no bits
        return;
    }
    Step* slot = _steps.data();
    unsigned length = 1;
    while (length <= step::lookupBits && characters.countUpTo(length) == 0)
        ++length;
    if (length <= step::lookupBits) {
        Following<0> seconds;
        Following<step::openFlag> positionsBehind;
        seconds.fill(step::lookupBits - length, characters, second);
        positionsBehind.fill(step::lookupBits - length, positions, position);
        for (unsigned index = 0; length <= step::lookupBits; ++length) {
            for (; index < characters.countUpTo(length); ++index) {
                const unsigned symbol = characters.symbolAt(index);
                slot = symbol < arj::literalCount
                           ? seconds.write(slot, step::literal(symbol, length))
                           : positionsBehind.write(slot,
                                                   step::match(arj::matchLength(symbol), length));
            }
            seconds.halve();
            positionsBehind.halve();
        }
    }
    std::fill(slot, _steps.data() + step::tableSize, step::unknown);
}

} // namespace teskel
