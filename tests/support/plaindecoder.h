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
    quint64 bitsRead = 0; ///< passed over; a code that does not exist is not
};

/// Unpacks bit by bit, code by code and byte by byte, as the format's description goes: slow, and
/// without a line in common with the decoder that it checks.
/// @param claimed  length of the stream by its header: what is missing reads as one bits, and what
///                 lies beyond it as zero bits
/// @param size     bytes to unpack
[[nodiscard]] PlainResult decodePlainly(int method, const QByteArray& packed, quint32 claimed,
                                        int size);

} // namespace teskel::test
