// SPDX-License-Identifier: MIT
#pragma once

namespace teskel
{

/// `Single`: at most one item, the current one; `Multi`: each item on its own; `Extended`: ranges
/// with Shift, single ones with Control; `NoSelection`: none.
enum class ListBoxSelectionMode { Single, Multi, Extended, NoSelection };

/// How many columns or rows there are: a fixed number, as many as fit, or as many as are needed.
enum class ListBoxLayoutMode { FixedNumber, FitToWidth, FitToHeight = FitToWidth, Variable };

} // namespace teskel
