// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// What the next 12 bits of a packed stream say, in one number, so that one look-up decodes it.
///
/// | bits  | one or two literals     | a match                                                  |
/// |-------|-------------------------|----------------------------------------------------------|
/// | 0-5   | bits of the codes       | bits of both codes and the position's own                |
/// | 6     | 0                       | 1                                                        |
/// | 7-22  | the bytes, 8 bits each, | 7-12: bits of both codes less one; 13-18: 63 less the    |
/// |       | the first one lowest    | position's own bits, by both of which writtenPosition()  |
/// |       |                         | shifts; 19: 1, or 0 for the nearest position             |
/// | 23-30 | bytes less one          | bytes less one                                           |
/// | 31    | 0                       | 0                                                        |
///
/// An open step has bit 31 set, because 12 bits do not say it all. With bit 6 it is a match whose
/// position follows: bits 0-5 are those of the length's code alone, and bits 7-19 mean nothing.
/// Without bit 6 nothing is known.
///
/// A position's code tells how many bits of its own follow: all but the topmost, which is always
/// set. The nearest position, a distance of 1, may have a code and no such bits at all.
namespace teskel::step
{

using Step = quint32;

inline constexpr unsigned lookupBits = 12;
inline constexpr unsigned tableSize = 1U << lookupBits;

inline constexpr unsigned bitsMask = 63;
inline constexpr Step matchFlag = 1U << 6;
inline constexpr unsigned literalsShift = 7;
inline constexpr unsigned codesShift = 7;
inline constexpr unsigned ownShift = 13;
inline constexpr Step fartherFlag = 1U << 19;
inline constexpr unsigned bytesShift = 23;
inline constexpr unsigned openBytes = 1U << 8; ///< bit 31, seen from bit 23
inline constexpr Step openFlag = openBytes << bytesShift;
inline constexpr Step unknown = openFlag;

inline constexpr quint64 topBit = quint64{1} << 63;

/// A literal whose code has so many bits.
constexpr Step literal(unsigned byte, unsigned codeBits)
{
    return codeBits | byte << literalsShift;
}

/// What a second literal adds to the first.
constexpr Step second(unsigned byte, unsigned codeBits)
{
    return codeBits | byte << (literalsShift + 8) | 1U << bytesShift;
}

/// The length of a match, 3 to 256, whose code has so many bits. position() or openFlag is to be
/// added.
constexpr Step match(unsigned length, unsigned codeBits)
{
    return codeBits | matchFlag | codeBits << codesShift | (length - 1) << bytesShift;
}

/// What a position adds to a match: bits of its code, and `own` bits behind it. The match's code
/// has a bit at least.
constexpr Step position(unsigned codeBits, unsigned own, bool isNearest)
{
    const Step codes =
        (codeBits << codesShift) - (1U << codesShift); // the one less is that of both
    return codeBits + own + codes + ((63 - own) << ownShift) + (isNearest ? 0 : fartherFlag);
}

constexpr bool isMatch(Step step)
{
    return (step & matchFlag) != 0;
}
constexpr bool isOpen(Step step)
{
    return (step & openFlag) != 0;
}
/// Bits to be passed over.
constexpr unsigned bits(Step step)
{
    return step & bitsMask;
}
/// Bytes that come out, 1 to 256; 1 where nothing is known.
constexpr unsigned bytes(Step step)
{
    return (step >> bytesShift & (openBytes - 1)) + 1;
}
/// The literals as they lie in memory, little-endian.
constexpr quint16 literals(Step step)
{
    return static_cast<quint16>(step >> literalsShift);
}
/// Of a match that is not open: the position's bits out of `stream`, at whose top the step was
/// found, with the topmost one. The last bit of the codes makes room for that.
constexpr unsigned writtenPosition(Step step, quint64 stream)
{
    return static_cast<unsigned>((stream << (step >> codesShift & bitsMask) | topBit) >>
                                 (step >> ownShift & bitsMask));
}

static_assert(bits(match(256, 12) + position(12, 15, false)) == 12 + 12 + 15);
static_assert(bytes(literal(255, 6) + second(255, 6)) == 2);
static_assert(literals(literal('a', 6) + second('b', 6)) == ('a' | 'b' << 8));
static_assert(bytes(match(256, 12) + openFlag) == 256 && bytes(unknown) == 1);

} // namespace teskel::step
