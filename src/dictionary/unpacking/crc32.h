// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>

namespace teskel
{

/// The standard CRC-32 (reflected polynomial 0xEDB88320) of `size` bytes.
quint32 crc32(const void* data, std::size_t size);

/// The same on any processor: what crc32() is where libdeflate is not built with.
quint32 crc32ByTable(const void* data, std::size_t size);

} // namespace teskel
