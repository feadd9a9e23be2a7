// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/bitwindow.h"
#include "dictionary/unpacking/outputwindow.h"
#include "dictionary/unpacking/step.h"

#include <QtEndian>

#include <cstring>

namespace teskel
{

/// Where a match copies from, and how many bits say so; a distance of 0 where no code stands.
struct Position {
    unsigned distance = 0;
    unsigned bits = 0;
};

template<typename Codes>
void runSteps(BitWindow& window, OutputWindow& output, Codes& codes)
{
    using namespace step;
    constexpr unsigned pieceSize = 16;
    constexpr unsigned shortMatch = 2 * pieceSize;
    constexpr unsigned room = matchFlag + 2;
    constexpr quint64 topBit = quint64{1} << 63;

    unsigned at = output.position();
    if (at < pieceSize || output.capacity() < room || !window.hasWord())
        return;
    BitWindow bits = window;
    unsigned char* const out = output.data();
    const unsigned lastAt = output.capacity() - room;
    const Step* const table = codes.table();

    bits.refillFromWord();
    Step next = table[bits.peek(lookupBits)];
    while (bits.hasWord() && at <= lastAt && codes.areLeft()) {
        const unsigned more = next >> bytesShift; // bytes after the first
        const unsigned isMatch = next & matchFlag;
        auto distance = static_cast<unsigned>(
            ((bits.bits() << (next >> firstShift & 63U)) | topBit) >> (next >> ownShift & 63U));
        distance += static_cast<unsigned>(Codes::positionBase);
        distance = at + ((distance - at) & (0U - (isMatch >> 6)));
        if (distance - pieceSize > at - pieceSize || more >= shortMatch) [[unlikely]] {
            const unsigned length = (more & (openBytes - 1)) + 1;
            unsigned used = next & bitsMask;
            if ((next & openFlag) != 0) {
                if (length < 3)
                    break;
                const Position position = codes.positionAt(bits.bits() << used);
                distance = position.distance;
                used += position.bits;
            } else if ((next & writtenFlag) == 0) {
                distance = 1;
            }
            if (distance - 1 >= at || length + OutputWindow::copyMargin > output.capacity() - at)
                break;
            bits.drop(used);
            next = table[bits.peek(lookupBits)];
            bits.refillFromWord();
            OutputWindow::copyRoomily(out + at, distance, length);
            at += length;
            codes.count(1);
            continue;
        }
        const Step now = next;
        bits.drop(now & bitsMask);
        next = table[bits.peek(lookupBits)];
        bits.refillFromWord();
        unsigned char* const target = out + at;
        std::memcpy(target, target - distance, pieceSize);
        std::memcpy(target + pieceSize, target - distance + pieceSize, pieceSize);
        qToLittleEndian(static_cast<quint16>(now >> firstShift), target + isMatch);
        at += more + 1;
        codes.count(more == 1 ? 2 : 1);
    }
    window = bits;
    output.setPosition(at);
}

} // namespace teskel
