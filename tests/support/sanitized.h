// SPDX-License-Identifier: MIT
#pragma once

namespace teskel::test
{

/// Whether the program runs under AddressSanitizer, which takes time and memory of its own.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool isSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif
#else
inline constexpr bool isSanitized = false;
#endif

} // namespace teskel::test
