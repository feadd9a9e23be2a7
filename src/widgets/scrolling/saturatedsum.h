// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <limits>

namespace teskel
{

/// The sum, or the nearest int when it is beyond them.
constexpr int saturatedSum(int a, int b)
{
    constexpr qint64 least = std::numeric_limits<int>::min();
    constexpr qint64 most = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(least, qint64{a} + b, most));
}

} // namespace teskel
