// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

class QMouseEvent;
class QTeskelListBoxItem;
class QTeskelScrollView;
class QTimer;

namespace teskel
{

class ListBoxActions;
class ListBoxChoice;
class ListBoxGrid;
class ListBoxModel;
class ListBoxSelection;

/// Does what the pointer asks of a list box: press, click, drag, scroll on, hover.
///
/// Takes events with positions in the contents.
class ListBoxPointerController
{
public:
    ListBoxPointerController(QTeskelScrollView& view, const ListBoxModel& model,
                             const ListBoxSelection& selection, const ListBoxGrid& grid,
                             ListBoxActions& actions, ListBoxChoice& choice);

    void press(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    /// Scrolls on while an item is dragged outside the view.
    void autoScroll();

    /// Forgets the press, as its release may never arrive.
    void endDrag();
    /// Lets go of an item that leaves the list box.
    void forget(const QTeskelListBoxItem* item);
    /// Lets go of everything.
    void reset();

private:
    /// What the pointer did last.
    struct State {
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

    QPoint positionOf(const QMouseEvent& event) const;
    void dragTo(QPoint position);
    void hoverAt(QPoint position);

    QTeskelScrollView& _view;
    const ListBoxModel& _model;
    const ListBoxSelection& _selection;
    const ListBoxGrid& _grid;
    ListBoxActions& _actions;
    ListBoxChoice& _choice;
    QTimer* _scrollTimer;
    State _state;
};

} // namespace teskel
