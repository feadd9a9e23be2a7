// SPDX-License-Identifier: MIT
#include "lookup/panelarrangement.h"

namespace teskel
{

// The view toggle is not symmetric: stacked, "on" favours the article; side by side it does so for
// a right-handed user only.
PanelArrangement PanelArrangement::of(const PreferencesData& preferences)
{
    const bool toggled = preferences.getViewType() != PreferencesData::ToggleViewOff;
    if (preferences.getLayout() != PreferencesData::Vertical) {
        return toggled ? PanelArrangement{QBoxLayout::TopToBottom, 165, 35}
                       : PanelArrangement{QBoxLayout::TopToBottom, 50, 150};
    }
    if (preferences.getUserHandType() == PreferencesData::LeftHanded) {
        return toggled ? PanelArrangement{QBoxLayout::RightToLeft, 100, 130}
                       : PanelArrangement{QBoxLayout::RightToLeft, 160, 70};
    }
    return toggled ? PanelArrangement{QBoxLayout::LeftToRight, 160, 70}
                   : PanelArrangement{QBoxLayout::LeftToRight, 100, 130};
}

} // namespace teskel
