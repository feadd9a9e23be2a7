// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace teskel
{

/// Where the current item of a list box stands, as far as the keys care.
struct ListBoxPlace {
    int current;
    int count;
    int rows;
    int columns;
    /// Items in view; a page moves by as many.
    int visible;
};

/// The index that a key (Qt::Key) moves to, cut to the first and the last item; nothing for a key
/// that does not move. Left and Right move only where there are several columns.
std::optional<int> keyTarget(int key, const ListBoxPlace& place);

} // namespace teskel
