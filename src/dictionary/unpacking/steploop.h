// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/bitwindow.h"
#include "dictionary/unpacking/outputwindow.h"
#include "dictionary/unpacking/step.h"

#include <QtEndian>

#include <cstring>

/// Decodes codes step by step (see step.h), for all methods. What differs between them is `Codes`:
///
///     static constexpr unsigned positionBase;  // what is added to step::writtenPosition() to get
///                                              // a distance
///     static constexpr int wrapWarningLine;    // see OutputWindow::putMatch()
///     const step::Step* steps() const;         // the steps, by the next bits of the stream
///     unsigned left() const;                   // codes of the block still to come
///     void count(unsigned codes);              // so many were read
///     Source sourceAt(quint64 bits) const;     // the position at the top of `bits`
///     bool readCode(BitWindow&, OutputWindow&) // one code without the steps, of 56 ready bits;
///                                              // false where none stands
namespace teskel
{

/// Where a match copies from, and how many bits say so; a distance of 0 where no code stands.
struct Source {
    unsigned distance = 0;
    unsigned bits = 0;
};

/// Decodes many steps without looking at each of the limits, as long as all are far enough.
///
/// Each turn takes one step, which the turn before looked up, so that the table answers while bytes
/// are copied. A turn must not branch on what only the text decides, so literals and matches go the
/// same way. Literals are a match whose distance is the whole output: 32 bytes are copied from its
/// start, to memory beyond the output, which nobody reads before it is written. Then the literals
/// are stored: where they belong, or, if it is a match, parked 64 bytes further on, where they do
/// no harm, either. So a match writes
///
///     |<- output so far ->|<- 32 bytes copied ->|     |<-2->|
///     0                   at                  at+32  at+64 at+66
///
/// Matches of more than 32 bytes, from less than 16 back, or with a long code go the slower way.
/// Steps that are unknown, and matches from before the output, are left to takeStep(), as is
/// everything near an end.
template<typename Codes>
void runSteps(BitWindow& window, OutputWindow& output, Codes& codes)
{
    using namespace step;
    constexpr unsigned mostCodesOfStep = 2;
    constexpr unsigned pieceSize = 16; // is copied at once, so it must come from as far back
    constexpr unsigned copiedSize = 2 * pieceSize;
    constexpr unsigned literalsSize = 2;
    constexpr unsigned parkedAt = matchFlag; // the flag's value, so that it needs no branch
    constexpr unsigned room = parkedAt + literalsSize; // how far from `at` a turn may write
    static_assert(copiedSize <= parkedAt, "a match's own bytes lie before what it parks");
    // A turn begins with 56 bits. It looks the next step up behind this one and then refills. The
    // longest way: a length's code, the long code of a position, its own bits, the next step.
    static_assert(lookupBits + arj::maxCodeLength + arj::maxOwnBits + lookupBits <= 56);

    unsigned at = output.position();
    if (at < pieceSize || output.capacity() < room || !window.hasWord())
        return;
    unsigned char* const out = output.data();
    const unsigned capacity = output.capacity();
    const Step* const steps = codes.steps();
    BitWindow ahead = window; // a copy, so that it stays in registers

    ahead.refillFromWord();
    Step next = steps[ahead.peek(lookupBits)];
    while (ahead.hasWord() && at <= capacity - room && codes.left() >= mostCodesOfStep) {
        const Step now = next;
        const unsigned more = now >> bytesShift;     // bytes but one; 256 and up when it is open
        const unsigned literalsAt = now & matchFlag; // 0, or for a match parkedAt
        unsigned distance = writtenPosition(now, ahead.bits()) + Codes::positionBase;
        // Of literals it is `at`. A mask, as the compiler would make a jump of "?:".
        distance = at + ((distance - at) & (0U - literalsAt / parkedAt));

        // Below 16 the first difference wraps, so this asks for 16 <= distance <= at.
        if (distance - pieceSize > at - pieceSize || more >= copiedSize) [[unlikely]] {
            unsigned used = bits(now);
            if (now == unknown)
                break;
            if (isOpen(now)) {
                const Source source = codes.sourceAt(ahead.bits() << used);
                distance = source.distance;
                used += source.bits;
            } else if ((now & fartherFlag) == 0) {
                distance = 1;
            }
            const bool isWithin = distance - 1 < at; // 0, where no code stands, wraps and is not
            if (!isWithin || bytes(now) + OutputWindow::copyMargin > capacity - at)
                break;
            ahead.drop(used);
            next = steps[ahead.peek(lookupBits)];
            ahead.refillFromWord();
            OutputWindow::copyRoomily(out + at, distance, bytes(now));
            at += bytes(now);
            codes.count(1);
            continue;
        }

        ahead.drop(bits(now));
        next = steps[ahead.peek(lookupBits)];
        ahead.refillFromWord();
        unsigned char* const target = out + at;
        std::memcpy(target, target - distance, pieceSize);
        std::memcpy(target + pieceSize, target - distance + pieceSize, pieceSize);
        qToLittleEndian(literals(now), target + literalsAt);
        at += more + 1;
        codes.count(more == 1 ? 2 : 1); // no match gives out two bytes
    }
    window = ahead;
    output.setPosition(at);
}

/// Decodes one step with all limits checked, or a single code where a step would pass one or does
/// not know; false where no code stands.
template<typename Codes>
bool takeStep(BitWindow& window, OutputWindow& output, Codes& codes)
{
    using namespace step;
    window.refill();
    const Step now = codes.steps()[window.peek(lookupBits)];
    const bool isPair = !isMatch(now) && bytes(now) == 2;
    if (isOpen(now) || (isPair && (codes.left() < 2 || output.room() < 2))) {
        codes.count(1);
        return codes.readCode(window, output);
    }
    if (isMatch(now)) {
        const bool isNearest = (now & fartherFlag) == 0;
        const unsigned distance =
            isNearest ? 1 : writtenPosition(now, window.bits()) + Codes::positionBase;
        output.putMatch(distance, bytes(now), Codes::wrapWarningLine);
    } else {
        output.putLiteral(literals(now) & 0xFFU);
        if (isPair)
            output.putLiteral(literals(now) >> 8U);
    }
    window.drop(bits(now));
    codes.count(isPair ? 2 : 1);
    return true;
}

/// Decodes until the output is full or the codes have come to their end; false where no code
/// stands.
template<typename Codes>
bool decodeCodes(BitWindow& window, OutputWindow& output, Codes& codes)
{
    while (!output.isFull() && codes.left() > 0) {
        runSteps(window, output, codes); // never fills the output
        if (codes.left() > 0 && !takeStep(window, output, codes))
            return false;
    }
    return true;
}

} // namespace teskel
