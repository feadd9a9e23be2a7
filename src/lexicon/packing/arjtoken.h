// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace teskel
{

/// One step of unpacking: a literal byte (length 0) or a copy of earlier bytes.
struct ArjToken {
    uint16_t length = 0;
    uint16_t value = 0; ///< the literal byte, or the distance
};

} // namespace teskel
