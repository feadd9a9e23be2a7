// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/bitwriter.h"

#include <QList>
#include <QRandomGenerator>

namespace teskel::test
{

/// Lengths of the codes of an alphabet, by symbol; 0: the symbol has no code.
using CodeLengths = QList<int>;

/// A prefix code.
struct PrefixCode {
    quint32 bits = 0;
    int length = 0;
};

/// The canonical codes of these lengths: ascending with length, then with symbol.
[[nodiscard]] QList<PrefixCode> canonicalCodes(const CodeLengths& lengths);

/// Lengths that fill the code space, of `used` random symbols out of `symbols`; at most 16.
[[nodiscard]] CodeLengths randomLengths(QRandomGenerator& generator, int symbols, int used);

/// Writes the number and the lengths of a position or length code, as they stand in a block.
/// @param skipIndex  after this many lengths a 2-bit run of zeros follows; -1: never
void putSmallTable(BitWriter& bits, const CodeLengths& lengths, int skipIndex);

/// Writes a code of one symbol.
void putSingle(BitWriter& bits, quint32 symbol, int countBits);

/// Writes a block of methods 1 to 3, code by code.
class StaticBlock
{
public:
    StaticBlock(const CodeLengths& characters, const CodeLengths& positions)
        : _characters(characters)
        , _positions(positions)
        , _characterCodes(canonicalCodes(characters))
        , _positionCodes(canonicalCodes(positions))
    {
    }

    void literal(quint8 byte);
    /// A match whose length and distance must have codes: see canMatch().
    void match(int length, int distance);
    [[nodiscard]] bool canMatch(int length, int distance) const;
    [[nodiscard]] int codeCount() const { return _codeCount; }

    /// Appends number of codes, tables and codes.
    void writeTo(BitWriter& bits) const;
    /// The same without the number of codes.
    void writeTables(BitWriter& bits) const;

private:
    void putCharacterTable(BitWriter& bits) const;
    void putCode(const PrefixCode& code) { _content.append({code.bits, code.length}); }

    CodeLengths _characters;
    CodeLengths _positions;
    QList<PrefixCode> _characterCodes;
    QList<PrefixCode> _positionCodes;
    QList<PrefixCode> _content;
    int _codeCount = 0;
};

} // namespace teskel::test
