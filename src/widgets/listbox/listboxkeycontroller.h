// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

class QKeyEvent;
class QString;
class QTeskelScrollView;

namespace teskel
{

class ListBoxActions;
class ListBoxChoice;
class ListBoxGrid;
class ListBoxModel;
class ListBoxSelection;
class ListBoxTypeAhead;

/// Does what the keys ask of a list box: move, choose, type ahead.
class ListBoxKeyController
{
public:
    /// Where the current item of a list box stands, as far as the keys care.
    struct Place {
        int current;
        int count;
        int rows;
        int columns;
        /// Items in view; a page moves by as many.
        int visible;
    };

    /// The index that a key (Qt::Key) moves to, cut to the first and the last item; nothing for a
    /// key that does not move. Left and Right move only where there are several columns.
    static std::optional<int> target(int key, const Place& place);

    ListBoxKeyController(QTeskelScrollView& view, const ListBoxModel& model,
                         const ListBoxSelection& selection, ListBoxGrid& grid,
                         ListBoxActions& actions, ListBoxChoice& choice);

    void press(QKeyEvent* event);
    void endTypingAhead();

private:
    bool move(const QKeyEvent& event);
    void act(QKeyEvent* event);

    QTeskelScrollView& _view;
    const ListBoxModel& _model;
    const ListBoxSelection& _selection;
    ListBoxGrid& _grid;
    ListBoxActions& _actions;
    ListBoxChoice& _choice;
    ListBoxTypeAhead* _typeAhead;
};

} // namespace teskel
