// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxkeycontroller.h"

#include "widgets/listbox/listboxactions.h"
#include "widgets/listbox/listboxchoice.h"
#include "widgets/listbox/listboxgrid.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/listboxtypeahead.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QKeyEvent>

namespace teskel
{

namespace
{
bool isTypedText(const QKeyEvent& event)
{
    const QString text = event.text();
    return !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate()) &&
           (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}
} // namespace

std::optional<int> ListBoxKeyController::target(int key, const Place& place)
{
    const int last = place.count - 1;
    const int page = qMax(1, place.visible);
    int index = 0;
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    case Qt::Key_Up:
        index = place.current - 1;
        break;
    case Qt::Key_Down:
        index = place.current + 1;
        break;
    case Qt::Key_PageUp:
        index = place.current - page;
        break;
    case Qt::Key_PageDown:
        index = place.current + page;
        break;
    case Qt::Key_Left:
        if (place.columns < 2)
            return {};
        index = place.current - (place.current >= place.rows ? place.rows : 0);
        break;
    case Qt::Key_Right:
        if (place.columns < 2)
            return {};
        // A last column that is shorter is entered at its end.
        index = place.current;
        if (place.current / place.rows < place.columns - 1)
            index += place.rows;
        break;
    default:
        return {};
    }
    return qBound(0, index, last);
}

ListBoxKeyController::ListBoxKeyController(QTeskelScrollView& view, const ListBoxModel& model,
                                           const ListBoxSelection& selection, ListBoxGrid& grid,
                                           ListBoxActions& actions, ListBoxChoice& choice)
    : _view(view)
    , _model(model)
    , _selection(selection)
    , _grid(grid)
    , _actions(actions)
    , _choice(choice)
    , _typeAhead(new ListBoxTypeAhead(&view))
{
    QObject::connect(_typeAhead, &ListBoxTypeAhead::expired, &view, [this] { endTypingAhead(); });
}

void ListBoxKeyController::endTypingAhead()
{
    _typeAhead->clear();
}

void ListBoxKeyController::press(QKeyEvent* event)
{
    event->setAccepted(_selection.current() != nullptr);
    if (_model.isEmpty())
        return;
    if (_selection.current() == nullptr) {
        _choice.takeFirst();
        return;
    }
    if (move(*event))
        return;
    // A word may hold a Space, but none begins with one.
    if (isTypedText(*event) && (event->key() != Qt::Key_Space || !_typeAhead->isEmpty()))
        _actions.setCurrentItem(_model.findPrefix(_typeAhead->append(event->text())));
    else
        act(event);
}

/// False for a key that does not move.
bool ListBoxKeyController::move(const QKeyEvent& event)
{
    if (!_grid.fitContents())
        return true;
    const ListBoxLayouter& grid = _grid.layouter();
    const auto index = target(event.key(), {_model.index(_selection.current()), _model.count(),
                                            grid.rows(), grid.columns(), _grid.itemsInView()});
    if (!index)
        return false;
    QTeskelListBoxItem* const reached = _model.item(*index);
    const ListBoxWatch watch = _model.watch(reached);
    _choice.moveTo(reached, event.modifiers());
    if (!watch.isAlive())
        return true;
    if (event.key() == Qt::Key_PageDown)
        _actions.setBottomItem(_model.index(_selection.current()));
    else if (event.key() == Qt::Key_PageUp)
        _actions.setTopItem(_model.index(_selection.current()));
    return true;
}

/// The keys that do something with the current item or the whole list.
void ListBoxKeyController::act(QKeyEvent* event)
{
    QTeskelListBoxItem* const current = _selection.current();
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        // Called directly: sent as an event it would come back from the bar to this list.
        static_cast<QObject*>(_view.horizontalScrollBar())->event(event);
        event->accept();
        break;
    case Qt::Key_Space:
        if (_selection.holdsSeveral())
            _actions.setSelected(current, !current->selected());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        _model.watch(current).run([&] { _actions.reportSelected(current); },
                                  [&] { _actions.reportReturnPressed(current); });
        break;
    case Qt::Key_A:
        if (event->modifiers() == Qt::ControlModifier && _selection.holdsSeveral())
            _actions.selectAll(true);
        else
            event->ignore();
        break;
    default:
        event->ignore();
    }
}

} // namespace teskel
