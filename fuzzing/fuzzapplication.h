// SPDX-License-Identifier: MIT
#pragma once

namespace teskel::fuzz
{

/// Makes the application that fonts and widgets need, without a display, at the first call.
void startApplication();

} // namespace teskel::fuzz
