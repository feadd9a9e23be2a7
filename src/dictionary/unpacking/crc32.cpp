// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/crc32.h"

#include <QtEndian>

#include <array>

#ifdef TESKEL_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif

namespace teskel
{

namespace
{
constexpr quint32 polynomial = 0xEDB88320;
constexpr std::size_t sliceCount = 8;
using Slices = std::array<std::array<quint32, 256>, sliceCount>;

// Table k tells what a byte does to the checksum when k more bytes follow it.
constexpr Slices makeSlices()
{
    Slices slices{};
    for (quint32 byte = 0; byte < 256; ++byte) {
        quint32 crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ polynomial : crc >> 1;
        slices[0][byte] = crc;
    }
    for (std::size_t k = 1; k < sliceCount; ++k) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const quint32 before = slices[k - 1][byte];
            slices[k][byte] = before >> 8 ^ slices[0][before & 0xFF];
        }
    }
    return slices;
}

constexpr Slices slices = makeSlices();
} // namespace

quint32 crc32(const void* data, std::size_t size)
{
#ifdef TESKEL_HAVE_LIBDEFLATE
    return libdeflate_crc32(0, data, size);
#else
    return crc32ByTable(data, size);
#endif
}

quint32 crc32ByTable(const void* data, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    quint32 crc = 0xFFFFFFFF;
    for (; size >= sliceCount; size -= sliceCount, bytes += sliceCount) {
        const quint32 low = qFromLittleEndian<quint32>(bytes) ^ crc;
        const auto high = qFromLittleEndian<quint32>(bytes + 4);
        crc = slices[7][low & 0xFF] ^ slices[6][low >> 8 & 0xFF] ^ slices[5][low >> 16 & 0xFF] ^
              slices[4][low >> 24] ^ slices[3][high & 0xFF] ^ slices[2][high >> 8 & 0xFF] ^
              slices[1][high >> 16 & 0xFF] ^ slices[0][high >> 24];
    }
    for (; size > 0; --size, ++bytes)
        crc = crc >> 8 ^ slices[0][(crc ^ *bytes) & 0xFF];
    return ~crc;
}

} // namespace teskel
