// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <limits>

namespace teskel
{

/// The sum, or the nearest int when it is beyond them.
constexpr int saturatedSum(int a, int b)
{
    constexpr qint64 Least = std::numeric_limits<int>::min();
    constexpr qint64 Most = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(Least, qint64{a} + b, Most));
}

} // namespace teskel
