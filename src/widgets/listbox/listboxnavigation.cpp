// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxnavigation.h"

#include <Qt>
#include <QtGlobal>

namespace teskel
{

std::optional<int> keyTarget(int key, const ListBoxPlace& place)
{
    const int last = place.count - 1;
    const int page = qMax(1, place.visible);
    int target = 0;
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    case Qt::Key_Up:
        target = place.current - 1;
        break;
    case Qt::Key_Down:
        target = place.current + 1;
        break;
    case Qt::Key_PageUp:
        target = place.current - page;
        break;
    case Qt::Key_PageDown:
        target = place.current + page;
        break;
    case Qt::Key_Left:
        if (place.columns < 2)
            return {};
        target = place.current - (place.current >= place.rows ? place.rows : 0);
        break;
    case Qt::Key_Right:
        if (place.columns < 2)
            return {};
        // A last column that is shorter is entered at its end.
        target = place.current / place.rows < place.columns - 1 ? place.current + place.rows
                                                                : place.current;
        break;
    default:
        return {};
    }
    return qBound(0, target, last);
}

} // namespace teskel
