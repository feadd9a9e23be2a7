// SPDX-License-Identifier: MIT
#pragma once

#include "settings/preferences.h"

#include <QBoxLayout>

namespace teskel
{

/// How the article view and the word list share the room below or above the entry.
///
/// The article view is the first of the two in the layout's direction. The minimums, in pixels,
/// are heights when the panels are stacked and widths when they stand side by side.
struct PanelArrangement {
    QBoxLayout::Direction direction = QBoxLayout::TopToBottom;
    int articleMinimum = 0;
    int listMinimum = 0;

    bool isStacked() const { return direction == QBoxLayout::TopToBottom; }

    /// The arrangement that the settings ask for; values that no enumeration names are allowed.
    static PanelArrangement of(const PreferencesData& preferences);
};

} // namespace teskel
