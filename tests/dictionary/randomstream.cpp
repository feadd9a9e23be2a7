// SPDX-License-Identifier: MIT
#include "tests/dictionary/randomstream.h"

#include "tests/dictionary/staticblock.h"

namespace teskel::test
{

namespace
{
constexpr int mostCodes = 600; // of a block

// Most distances are short, rarely one reaches before the output.
int randomDistance(QRandomGenerator& generator, int position, int farthest)
{
    const int limit = generator.bounded(200) == 0 ? farthest : qBound(1, position, farthest);
    return 1 + static_cast<int>(limit * generator.generateDouble() * generator.generateDouble() *
                                0.999);
}

int randomLength(QRandomGenerator& generator)
{
    return generator.bounded(4) == 0 ? generator.bounded(3, 257) : generator.bounded(3, 20);
}

// As method 4 writes it: each one bit makes the number a bit wider.
void putNumber(BitWriter& bits, int number, int width, int lastWidth)
{
    for (; width < lastWidth && number >= 1 << width; ++width) {
        bits.put(1, 1);
        number -= 1 << width;
    }
    if (width < lastWidth)
        bits.put(0, 1);
    bits.put(static_cast<quint32>(number), width);
}
} // namespace

QByteArray randomBlocks(QRandomGenerator& generator)
{
    BitWriter bits;
    int position = 0;
    for (int blocks = generator.bounded(1, 4); blocks > 0; --blocks) {
        const CodeLengths positions = randomLengths(generator, 17, generator.bounded(2, 18));
        const int most = generator.bounded(3) == 0 ? 511 : 60; // few characters have short codes
        const CodeLengths characters = randomLengths(generator, 510, generator.bounded(2, most));
        StaticBlock block(characters, positions);
        for (int tries = generator.bounded(1, mostCodes); tries > 0; --tries) {
            const auto byte = static_cast<quint8>(generator.bounded(256));
            const int length = randomLength(generator);
            const int distance = randomDistance(generator, position, 65536);
            if (generator.bounded(2) == 0 && block.canMatch(length, distance)) {
                block.match(length, distance);
                position += length;
            } else if (characters.at(byte) != 0) {
                block.literal(byte);
                ++position;
            }
        }
        if (block.codeCount() > 0)
            block.writeTo(bits);
    }
    return bits.bytes();
}

QByteArray randomFastest(QRandomGenerator& generator)
{
    BitWriter bits;
    int position = 0;
    for (int codes = generator.bounded(1, mostCodes); codes > 0; --codes) {
        if (generator.bounded(2) == 0) {
            const int length = randomLength(generator);
            putNumber(bits, length - 2, 0, 7);
            putNumber(bits, randomDistance(generator, position, 15872) - 1, 9, 13);
            position += length;
        } else {
            bits.put(0, 1).put(static_cast<quint32>(generator.bounded(256)), 8);
            ++position;
        }
    }
    return bits.bytes();
}

QByteArray noise(QRandomGenerator& generator, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

void flipBits(QRandomGenerator& generator, QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    for (int flips = generator.bounded(1, 4); flips > 0; --flips) {
        const int early = generator.bounded(2) == 0 ? 400 : static_cast<int>(bytes.size());
        const int at = generator.bounded(qMin(early, static_cast<int>(bytes.size())));
        bytes[at] = static_cast<char>(bytes.at(at) ^ 1 << generator.bounded(8));
    }
}

} // namespace teskel::test
