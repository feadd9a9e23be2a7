// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxpointercontroller.h"

#include "widgets/listbox/listboxactions.h"
#include "widgets/listbox/listboxchoice.h"
#include "widgets/listbox/listboxgrid.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/lostrelease.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QMouseEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{
constexpr int scrollInterval = 100;
}

ListBoxPointerController::ListBoxPointerController(QTeskelScrollView& view,
                                                   const ListBoxModel& model,
                                                   const ListBoxSelection& selection,
                                                   const ListBoxGrid& grid, ListBoxActions& actions,
                                                   ListBoxChoice& choice)
    : _view(view)
    , _model(model)
    , _selection(selection)
    , _grid(grid)
    , _actions(actions)
    , _choice(choice)
    , _scrollTimer(new QTimer(&view))
{
    _scrollTimer->setObjectName(u"listbox scroll timer"_s);
    _scrollTimer->setInterval(scrollInterval);
    QObject::connect(_scrollTimer, &QTimer::timeout, &view, [this] { autoScroll(); });
}

/// Where the event is in the viewport.
QPoint ListBoxPointerController::positionOf(const QMouseEvent& event) const
{
    return _view.contentsToViewport(event.position().toPoint());
}

void ListBoxPointerController::press(const QMouseEvent& event)
{
    QTeskelListBoxItem* const item = _grid.itemAt(positionOf(event));
    _state.isDown = true;
    _state.pressed = item;
    _state.drags = item != nullptr && event.button() == Qt::LeftButton;
    _state.dragSelects = item != nullptr && !item->selected();

    const ListBoxWatch watch = _model.watch(item);
    if (item != nullptr)
        _choice.press(item, event.modifiers());
    else if (_selection.mode() == ListBoxSelectionMode::Extended &&
             event.modifiers() == Qt::NoModifier)
        _actions.clearSelection();
    if (watch.isAlive())
        _actions.reportPressed(static_cast<int>(event.button()), item,
                               event.globalPosition().toPoint());
}

void ListBoxPointerController::release(const QMouseEvent& event)
{
    QTeskelListBoxItem* const item = _grid.itemAt(positionOf(event));
    const bool isClick = _state.isDown && _state.pressed == item;
    endDrag();
    if (isClick)
        _actions.reportClicked(static_cast<int>(event.button()), item,
                               event.globalPosition().toPoint());
}

void ListBoxPointerController::doubleClick(const QMouseEvent& event)
{
    QTeskelListBoxItem* const item = _grid.itemAt(positionOf(event));
    if (item == nullptr)
        return;
    // The second press may be on another row than the first.
    _model.watch(item).run(
        [&] {
            if (!_selection.holdsSeveral())
                _actions.setSelected(item, true);
        },
        [&] { _actions.reportSelected(item); }, [&] { _actions.reportDoubleClicked(item); });
}

void ListBoxPointerController::move(const QMouseEvent& event)
{
    if (!event.buttons().testFlag(Qt::LeftButton) && _state.drags)
        endDrag();
    if (_state.drags)
        dragTo(positionOf(event));
    else if (event.buttons() == Qt::NoButton)
        hoverAt(positionOf(event));
}

void ListBoxPointerController::dragTo(QPoint position)
{
    _state.lastPosition = position;
    const QRect view = _view.viewport()->rect();
    if (view.contains(position))
        _scrollTimer->stop();
    else if (!_scrollTimer->isActive())
        _scrollTimer->start();

    QTeskelListBoxItem* const reached =
        _grid.itemAt({qBound(view.left(), position.x(), view.right()),
                      qBound(view.top(), position.y(), view.bottom())});
    if (reached == nullptr || reached == _selection.current())
        return;
    const ListBoxWatch watch = _model.watch(reached);
    _choice.moveTo(reached, Qt::ShiftModifier);
    if (watch.isAlive() && _selection.mode() == ListBoxSelectionMode::Multi)
        _actions.setSelected(reached, _state.dragSelects);
}

void ListBoxPointerController::endDrag()
{
    _state.isDown = _state.drags = false;
    _state.pressed = nullptr;
    _scrollTimer->stop();
}

void ListBoxPointerController::forget(const QTeskelListBoxItem* item)
{
    if (_state.pressed == item)
        endDrag();
    if (_state.hovered == item)
        _state.hovered = nullptr;
}

void ListBoxPointerController::reset()
{
    _state = {};
    _scrollTimer->stop();
}

void ListBoxPointerController::autoScroll()
{
    if (!_state.drags || isReleaseLost(&_view)) {
        endDrag();
        return;
    }
    const auto direction = [](int position, int first, int last) {
        return position < first ? -1 : position > last ? 1 : 0;
    };
    const QRect view = _view.viewport()->rect();
    const QPoint at = _state.lastPosition;
    const ListBoxWatch watch = _model.watch();
    _view.scrollBy(
        direction(at.x(), view.left(), view.right()) * _view.horizontalScrollBar()->lineStep(),
        direction(at.y(), view.top(), view.bottom()) * _view.verticalScrollBar()->lineStep());
    if (watch.isAlive())
        dragTo(at);
}

void ListBoxPointerController::hoverAt(QPoint position)
{
    QTeskelListBoxItem* const item = _grid.itemAt(position);
    if (item == _state.hovered && (item != nullptr || _state.hoversViewport))
        return;
    _state.hovered = item;
    _state.hoversViewport = item == nullptr;
    _actions.reportHovered(item);
}

} // namespace teskel
