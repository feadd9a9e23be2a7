// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// What the next 12 bits of a packed stream say, in one number, so that one look-up decodes it.
///
/// | bits  | one or two literals   | a match                                                  |
/// |-------|-----------------------|----------------------------------------------------------|
/// | 0-5   | bits of the codes     | bits of both codes and of the position itself            |
/// | 6     | 0                     | 1                                                        |
/// | 7-22  | the first, the second | 7-12: bits of both codes less one; 13-18: 63 less bits   |
/// |       |                       | of the position itself; 19: whether it has such bits     |
/// | 23-30 | bytes less one        | bytes less one                                           |
/// | 31    | 0                     | 0                                                        |
///
/// An open step has bit 31 set: 12 bits do not say it all. It is a match whose position has to be
/// read on its own, and counts the bits of its length alone; or it gives out less than three bytes,
/// and nothing is known.
///
/// A position is the distance of a match less a constant of the method. The topmost of its bits is
/// not written, as it is always set.
namespace teskel::step
{

using Step = quint32;

inline constexpr unsigned lookupBits = 12;
inline constexpr unsigned tableSize = 1U << lookupBits;

inline constexpr unsigned bitsMask = 63;
inline constexpr Step matchFlag = 1U << 6;
inline constexpr unsigned firstShift = 7; ///< of literals, or of a match's bits of codes
inline constexpr unsigned secondShift = 15;
inline constexpr unsigned ownShift = 13;
inline constexpr Step writtenFlag = 1U << 19;
inline constexpr unsigned bytesShift = 23;
inline constexpr unsigned openBytes = 1U << 8; ///< added to the bytes of an open step
inline constexpr Step openFlag = openBytes << bytesShift;
inline constexpr Step unknown = openFlag;

/// A literal alone, whose code has `bits` bits.
constexpr Step literal(unsigned byte, unsigned bits)
{
    return bits | byte << firstShift;
}

/// What a second literal adds to the first.
constexpr Step second(unsigned byte, unsigned bits)
{
    return bits | byte << secondShift | 1U << bytesShift;
}

/// The length of a match, 3 to 256, whose code has `bits` bits; position() or openFlag is to be
/// added.
constexpr Step match(unsigned length, unsigned bits)
{
    return bits | matchFlag | bits << firstShift | (length - 1) << bytesShift;
}

/// What a position adds to a match: `bits` of code and `own` bits of its own. Neither code alone
/// takes no bits when both are in a step.
constexpr Step position(unsigned bits, unsigned own, bool isWritten)
{
    const Step codes = (bits << firstShift) - (1U << firstShift); // the one less of both
    return bits + own + codes + ((63 - own) << ownShift) + (isWritten ? writtenFlag : 0);
}

} // namespace teskel::step
