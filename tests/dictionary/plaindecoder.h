// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace teskel::test
{

/// What the plain decoder made of a stream.
struct PlainResult {
    QByteArray output;
    bool hasGoodTables = true;
    int wraps = 0;        ///< matches that begin before the output
    quint64 bitsRead = 0; ///< after the 16 that are held ahead
};

/// Unpacks bit by bit and byte by byte, as the format's description goes: slow, and without a line
/// in common with the decoder that it checks.
[[nodiscard]] PlainResult decodePlainly(int method, const QByteArray& packed, int size);

} // namespace teskel::test
