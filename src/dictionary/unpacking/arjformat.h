// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Numbers of the ARJ member format that decoder and encoder share; docs/lexicon-format.md tells
/// what they mean.
namespace teskel::arj
{

// Member header
inline constexpr quint16 headerId = 0xEA60;           ///< first two bytes, little-endian
inline constexpr unsigned firstHeaderSize = 30;       ///< fixed fields, up to the file name
inline constexpr unsigned fileNameCapacity = 512;     ///< bytes kept of the name, NUL included
inline constexpr unsigned commentCapacity = 2048;     ///< bytes kept of the comment, NUL included
inline constexpr quint32 maxUncompressedSize = 32767; ///< a record that expands to more is refused
inline constexpr unsigned encoderWindow = 26624;   ///< farthest distance that `arj` itself accepts
inline constexpr int decompressBufferSize = 32000; ///< added to a source index below 0

enum Method : quint8 { Stored = 0, MostCompressed = 1, Compressed = 2, Faster = 3, Fastest = 4 };

// Matches, all methods
inline constexpr unsigned threshold = 3;  ///< shortest match
inline constexpr unsigned maxMatch = 256; ///< longest match
inline constexpr unsigned literalCount = 256;

// Methods 1 to 3
inline constexpr unsigned charCodes = literalCount + maxMatch - threshold + 1; ///< 510
inline constexpr unsigned positionCodes = 17;
inline constexpr unsigned lengthCodes = 19;      ///< alphabet in which the code lengths are written
inline constexpr unsigned charCountBits = 9;     ///< width of the number of character lengths
inline constexpr unsigned positionCountBits = 5; ///< width of the number of position lengths
inline constexpr unsigned lengthCountBits = 5;   ///< width of the number of length-code lengths
inline constexpr unsigned lengthSkipIndex = 3;   ///< after this many, a 2-bit run of zero lengths
inline constexpr unsigned blockSizeBits = 16;
inline constexpr unsigned maxCodeLength = 16;

// Method 4: a number is written as up to (last - first) one bits, a zero bit unless all are set,
// and as many further bits as the width that was reached.
inline constexpr unsigned fastLengthFirstWidth = 0;
inline constexpr unsigned fastLengthLastWidth = 7;
inline constexpr unsigned fastPositionFirstWidth = 9;
inline constexpr unsigned fastPositionLastWidth = 13;
inline constexpr unsigned fastMaxDistance = 15872; ///< farthest distance method 4 can write

/// Bits that follow the code of a position: all of it but the topmost, which is set.
constexpr unsigned ownBits(unsigned positionSymbol)
{
    return positionSymbol == 0 ? 0 : positionSymbol - 1;
}
inline constexpr unsigned maxOwnBits = ownBits(positionCodes - 1);

/// The length of a match by its character code.
constexpr unsigned matchLength(unsigned character)
{
    return character - literalCount + threshold;
}

static_assert(charCodes == 510 && matchLength(charCodes - 1) == maxMatch);

} // namespace teskel::arj
