// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRandomGenerator>

namespace teskel::test
{

/// Blocks of methods 1 to 3 with random codes, long and short, and random literals and matches;
/// rarely a match that begins before the output.
[[nodiscard]] QByteArray randomBlocks(QRandomGenerator& generator);

/// The same for method 4, which has neither codes nor blocks.
[[nodiscard]] QByteArray randomFastest(QRandomGenerator& generator);

/// Bytes without a meaning.
[[nodiscard]] QByteArray noise(QRandomGenerator& generator, int size);

/// Flips one to three bits, mostly early ones.
void flipBits(QRandomGenerator& generator, QByteArray& bytes);

} // namespace teskel::test
