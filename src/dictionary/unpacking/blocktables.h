// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/canonicalcode.h"
#include "dictionary/unpacking/huffmantable.h"
#include "dictionary/unpacking/steptable.h"

namespace teskel
{

class BitWindow;

/// The codes of one block of methods 1 to 3, as they stand at its beginning.
class BlockTables
{
public:
    /// Reads the tables behind the number of codes.
    /// @return false when they are damaged: then the tables are of no use
    [[nodiscard]] bool read(BitWindow& window);

    [[nodiscard]] const CharacterCode& characters() const { return _characters; }
    [[nodiscard]] const HuffmanTable<arj::positionCodes>& positions() const { return _positions; }
    /// Both together.
    [[nodiscard]] const StepTable& steps() const { return _steps; }

private:
    CharacterCode _characters;
    HuffmanTable<arj::positionCodes> _positions;
    StepTable _steps;
};

} // namespace teskel
