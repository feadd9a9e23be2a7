// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxlayouter.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/listboxtypeahead.h"

#include <QTimer>

namespace teskel
{

/// The parts that a list box is made of, and what it remembers between events.
struct ListBoxState {
    explicit ListBoxState(QTeskelListBox* owner)
        : model(owner)
        , selection(model)
        , updateTimer(new QTimer(owner))
        , visibleTimer(new QTimer(owner))
        , scrollTimer(new QTimer(owner))
        , typeAhead(new ListBoxTypeAhead(owner))
    {
    }

    /// What the pointer did last.
    struct Pointer {
        bool isDown = false;
        QTeskelListBoxItem* pressed = nullptr;
        QTeskelListBoxItem* hovered = nullptr;
        bool hoversViewport = false;
        bool drags = false;
        /// Where the drag is, in the viewport.
        QPoint lastPosition;
        /// In the mode of several selections: what dragging over an item makes of it.
        bool dragSelects = true;
    };

    ListBoxModel model;
    ListBoxSelection selection;
    ListBoxLayouter layouter;
    ListBoxLayouter::Rules rules;
    Pointer pointer;

    QTimer* updateTimer;
    QTimer* visibleTimer;
    QTimer* scrollTimer;
    ListBoxTypeAhead* typeAhead;

    /// The grid is out of date.
    bool layoutNeeded = true;
    /// The contents' size has not been given the grid's.
    bool sizeNeeded = true;
    /// The whole viewport waits for a repaint.
    bool paintPending = false;
};

} // namespace teskel
