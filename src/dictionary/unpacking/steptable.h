// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/canonicalcode.h"
#include "dictionary/unpacking/step.h"

#include <array>

namespace teskel
{

using CharacterCode = CanonicalCode<arj::charCodes>;
using PositionCode = CanonicalCode<arj::positionCodes>;

/// The steps that the codes of a block make, by the next 12 bits of the stream.
class StepTable
{
public:
    /// Makes the table, whatever codes there are; what has none becomes step::unknown.
    void build(const CharacterCode& characters, const PositionCode& positions);

    [[nodiscard]] const step::Step* data() const { return _steps.data(); }

private:
    std::array<step::Step, step::tableSize> _steps;
};

} // namespace teskel
