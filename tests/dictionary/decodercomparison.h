// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace teskel::test
{

/// A packed stream, good or damaged, and what its header says.
struct PackedStream {
    int method = 1;
    QByteArray bytes;
    quint32 claimedSize = 0; ///< bytes that the stream is said to have
    int size = 0;            ///< bytes that come out
    int room = 0;            ///< bytes that the target takes
};

/// Unpacks by the reader's decoder and by the plain one, and compares result, status, bytes,
/// warnings, what of the input was taken, and that nothing was written beyond the target.
/// @return what differs, or nothing
[[nodiscard]] QString differenceFromPlain(const PackedStream& stream);

} // namespace teskel::test
