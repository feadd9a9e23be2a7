// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/steptable.h"

#include <algorithm>

namespace teskel
{

namespace
{
using step::Step;

// What a code can take in of the bits that are left behind it: for each value of them, a number to
// be added to the code's step.
template<Step nothing>
class Rest
{
public:
    // Fills the table for `left` bits, 0 to 11. `addend` tells what a symbol and the length of its
    // code add.
    template<unsigned Symbols, typename Addend>
    void fill(unsigned left, const CanonicalCode<Symbols>& code, Addend addend)
    {
        _size = 1U << left;
        Step* slot = _addends.data();
        unsigned index = 0;
        for (unsigned length = 0; length <= left; ++length) {
            const unsigned run = 1U << (left - length);
            for (; index < code.countUpTo(length); ++index, slot += run)
                std::fill_n(slot, run, addend(code.symbolAt(index), length));
        }
        std::fill(slot, _addends.data() + _size, nothing);
    }
    // Goes over to one bit less: what differs in that bit does not fit any more.
    void halve()
    {
        _size /= 2;
        for (unsigned i = 0; i < _size; i += 4) {
            std::array<Step, 4> halves;
            for (unsigned k = 0; k < 4; ++k) {
                const Step first = _addends[2 * (i + k)];
                const Step second = _addends[2 * (i + k) + 1];
                halves[k] = first == second ? first : nothing;
            }
            std::copy(halves.begin(), halves.end(), _addends.begin() + i);
        }
    }
    // Writes the steps of a code: as many as the bits left have values.
    Step* write(Step* target, Step code) const
    {
        if (_size < 4) {
            for (unsigned i = 0; i < _size; ++i)
                target[i] = code + _addends[i];
        } else {
            for (unsigned i = 0; i < _size; i += 4) {
                for (unsigned k = i; k < i + 4; ++k)
                    target[k] = code + _addends[k];
            }
        }
        return target + _size;
    }

private:
    std::array<Step, step::tableSize / 2> _addends;
    unsigned _size = 0;
};

Step second(unsigned symbol, unsigned length)
{
    return symbol < arj::literalCount ? step::second(symbol, length) : 0;
}

Step position(unsigned symbol, unsigned length)
{
    return step::position(length, arj::ownBits(symbol), symbol == 0);
}

Step openStep(unsigned symbol, unsigned length)
{
    return symbol < arj::literalCount
               ? step::literal(symbol, length)
               : step::match(arj::matchLength(symbol), length) + step::openFlag;
}
} // namespace

void StepTable::build(const CharacterCode& characters, const PositionCode& positions)
{
    if (characters.countUpTo(0) > 0) {
        _steps.fill(openStep(characters.symbolAt(0), 0));
        return;
    }
    Step* slot = _steps.data();
    unsigned length = 1;
    while (length <= step::lookupBits && characters.countUpTo(length) == 0)
        ++length;
    if (length <= step::lookupBits) {
        Rest<0> seconds;
        Rest<step::openFlag> positionsBehind;
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
