// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace teskel::test
{

/// The fields of an ARJ member header; the defaults are those of a plausible file.
struct ArjMember {
    quint16 headerId = 0xEA60;
    int basicHeaderSize = -1; ///< -1: as long as the fields need
    int firstHeaderSize = 30;
    quint8 method = 1;
    quint32 compressedSize = 0;
    quint32 uncompressedSize = 0;
    quint32 crc = 0;
    QByteArray fileName = "r";
    QByteArray comment;
    QByteArray extendedHeaders; ///< each: u16 size, bytes, u32 checksum
    bool hasTerminators = true; ///< NULs after file name and comment

    /// The header, up to the first packed byte. Header checksums are written as 0.
    [[nodiscard]] QByteArray header() const;
};

/// CRC-32 by zlib, which shares nothing with the code that is tested.
[[nodiscard]] quint32 checksum(const QByteArray& bytes);

/// A member of `packed` bytes that should unpack to `original`.
[[nodiscard]] QByteArray makeMember(quint8 method, const QByteArray& packed,
                                    const QByteArray& original);

/// Packs by method 4 without looking for matches: nine bits a byte, as simple as packing gets.
[[nodiscard]] QByteArray packLiterals(const QByteArray& original);

/// A member that unpacks to `original`, by packLiterals().
[[nodiscard]] QByteArray literalMember(const QByteArray& original);

/// An extended header for ArjMember::extendedHeaders.
[[nodiscard]] QByteArray extendedHeader(const QByteArray& content);

} // namespace teskel::test
