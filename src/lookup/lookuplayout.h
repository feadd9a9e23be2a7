// SPDX-License-Identifier: MIT
#pragma once

#include "lookup/panelarrangement.h"

class QWidget;

namespace teskel
{

/// Places the entry row and the two panels within their widget.
class LookupLayout
{
public:
    /// Lays out `owner`, which owns the layouts from now on.
    explicit LookupLayout(QWidget* owner);

    /// Puts the entry into its row, and the article before the list into the panels' room.
    void addWidgets(QWidget* entry, QWidget* article, QWidget* list);

    /// Gives both panels the arrangement's minimums along its direction. A larger window is shared
    /// in the same proportion; minimums across that direction stay as they were.
    void arrangePanels(const PanelArrangement& arrangement);

    /// Moves the entry row above or below the panels.
    void placeEntry(bool belowPanels);
    bool isEntryBelowPanels() const;

private:
    QBoxLayout* _main;
    QBoxLayout* _entryRow;
    QBoxLayout* _panels;
    QWidget* _article = nullptr;
    QWidget* _list = nullptr;
};

} // namespace teskel
