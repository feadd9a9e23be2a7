// SPDX-License-Identifier: MIT
// Keys, typing and the pointer in QTeskelListBox.
#include "widgets/listbox/listboxemission.h"
#include "widgets/listbox/listboxnavigation.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/scrolling/lostrelease.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace
{
using Item = QTeskelListBoxItem*;

constexpr auto pressedItem = qOverload<Item>(&QTeskelListBox::pressed);
constexpr auto pressedAt = qOverload<Item, const QPoint&>(&QTeskelListBox::pressed);
constexpr auto clickedItem = qOverload<Item>(&QTeskelListBox::clicked);
constexpr auto clickedAt = qOverload<Item, const QPoint&>(&QTeskelListBox::clicked);

bool isTypedText(const QKeyEvent& event)
{
    const QString text = event.text();
    return !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate()) &&
           (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}
} // namespace

void QTeskelListBox::keyPressEvent(QKeyEvent* event)
{
    if (count() == 0) {
        event->ignore();
        return;
    }
    if (currentItem() < 0) {
        event->ignore();
        teskel::ListBoxEmission emission(this, firstItem());
        setCurrentItem(firstItem());
        if (emission.isAlive())
            setSelected(0, true);
        return;
    }
    event->accept();
    if (moveByKey(*event))
        return;
    // A word may hold a Space, but none begins with one.
    if (isTypedText(*event) && (event->key() != Qt::Key_Space || !_state->typeAhead->isEmpty()))
        typeAhead(event->text());
    else
        actOnCurrent(event);
}

bool QTeskelListBox::moveByKey(const QKeyEvent& event)
{
    if (!layOutIfNeeded())
        return true;
    const auto target = teskel::keyTarget(
        event.key(), {currentItem(), count(), numRows(), numColumns(), numItemsVisible()});
    if (!target)
        return false;
    QTeskelListBoxItem* const reached = item(*target);
    teskel::ListBoxEmission emission(this, reached);
    if (selectionMode() == Extended)
        selectByMove(reached, event.modifiers());
    else
        setCurrentItem(reached);
    if (!emission.isAlive())
        return true;
    if (event.key() == Qt::Key_PageDown)
        setBottomItem(currentItem());
    else if (event.key() == Qt::Key_PageUp)
        setTopItem(currentItem());
    return true;
}

/// The keys that do something with the current item or the whole list.
void QTeskelListBox::actOnCurrent(QKeyEvent* event)
{
    QTeskelListBoxItem* const current = item(currentItem());
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        // Called directly: sent as an event it would come back from the bar to this list.
        static_cast<QObject*>(horizontalScrollBar())->event(event);
        event->accept();
        break;
    case Qt::Key_Space:
        if (isMultiSelection())
            setSelected(current, !current->selected());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        teskel::ListBoxEmission emission(this, current);
        emitSelected(emission, current);
        emission.emitSignal(&QTeskelListBox::returnPressed, current);
        break;
    }
    case Qt::Key_A:
        if (event->modifiers() == Qt::ControlModifier && isMultiSelection())
            selectAll(true);
        else
            event->ignore();
        break;
    default:
        event->ignore();
    }
}

void QTeskelListBox::typeAhead(const QString& text)
{
    setCurrentItem(findItem(_state->typeAhead->append(text)));
}

void QTeskelListBox::clearInputString()
{
    _state->typeAhead->clear();
}

void QTeskelListBox::focusInEvent(QFocusEvent* event)
{
    QTeskelScrollView::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && currentItem() < 0 && count() > 0) {
        teskel::ListBoxEmission emission(this, firstItem());
        setCurrentItem(firstItem());
        if (!emission.isAlive())
            return;
        setSelected(0, true);
        if (!emission.isAlive())
            return;
    }
    updateItem(item(currentItem()));
}

void QTeskelListBox::focusOutEvent(QFocusEvent* event)
{
    QTeskelScrollView::focusOutEvent(event);
    updateItem(item(currentItem()));
}

void QTeskelListBox::contentsMousePressEvent(QMouseEvent* event)
{
    QTeskelListBoxItem* const item = itemAt(contentsToViewport(event->position().toPoint()));
    const QPoint position = event->globalPosition().toPoint();
    auto& pointer = _state->pointer;
    pointer.isDown = true;
    pointer.pressed = item;
    pointer.drags = item != nullptr && event->button() == Qt::LeftButton;
    pointer.dragSelects = item != nullptr && !item->selected();

    teskel::ListBoxEmission emission(this, item);
    if (item != nullptr)
        selectByPress(item, event->modifiers());
    else if (selectionMode() == Extended && event->modifiers() == Qt::NoModifier)
        clearSelection();
    emission.emitSignal(pressedItem, item)
        .emitSignal(pressedAt, item, position)
        .emitSignal(&QTeskelListBox::mouseButtonPressed, static_cast<int>(event->button()), item,
                    position);
    if (event->button() == Qt::RightButton)
        emission.emitSignal(&QTeskelListBox::rightButtonPressed, item, position);
}

void QTeskelListBox::contentsMouseReleaseEvent(QMouseEvent* event)
{
    QTeskelListBoxItem* const item = itemAt(contentsToViewport(event->position().toPoint()));
    const QPoint position = event->globalPosition().toPoint();
    auto& pointer = _state->pointer;
    const bool isClick = pointer.isDown && pointer.pressed == item;
    endDrag();
    if (!isClick)
        return;
    teskel::ListBoxEmission emission(this, item);
    emission.emitSignal(clickedItem, item)
        .emitSignal(clickedAt, item, position)
        .emitSignal(&QTeskelListBox::mouseButtonClicked, static_cast<int>(event->button()), item,
                    position);
    if (event->button() == Qt::RightButton)
        emission.emitSignal(&QTeskelListBox::rightButtonClicked, item, position);
}

void QTeskelListBox::contentsMouseDoubleClickEvent(QMouseEvent* event)
{
    QTeskelListBoxItem* const item = itemAt(contentsToViewport(event->position().toPoint()));
    if (item == nullptr)
        return;
    teskel::ListBoxEmission emission(this, item);
    // The second press may be on another row than the first.
    if (!isMultiSelection())
        setSelected(item, true);
    if (emission.isAlive())
        emitSelected(emission, item);
    emission.emitSignal(&QTeskelListBox::doubleClicked, item);
}

void QTeskelListBox::contentsMouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = contentsToViewport(event->position().toPoint());
    if (!event->buttons().testFlag(Qt::LeftButton) && _state->pointer.drags)
        endDrag();
    if (_state->pointer.drags)
        dragTo(position);
    else if (event->buttons() == Qt::NoButton)
        hoverAt(position);
}

void QTeskelListBox::selectByPress(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers)
{
    teskel::ListBoxEmission emission(this, item);
    switch (selectionMode()) {
    case Single:
        setSelected(item, true);
        break;
    case NoSelection:
        setCurrentItem(item);
        break;
    case Multi:
        setCurrentItem(item);
        if (emission.isAlive())
            setSelected(item, !item->selected());
        break;
    case Extended:
        if ((modifiers & Qt::ControlModifier) != 0) {
            _state->selection.setAnchor(item);
            setCurrentItem(item);
            if (emission.isAlive())
                setSelected(item, !item->selected());
        } else {
            selectByMove(item, modifiers);
        }
        break;
    }
}

/// Moves the current item to `item` and takes the selection along.
void QTeskelListBox::selectByMove(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers)
{
    teskel::ListBoxEmission emission(this, item);
    setCurrentItem(item);
    if (!emission.isAlive() || selectionMode() != Extended)
        return;
    if ((modifiers & Qt::ShiftModifier) != 0)
        afterSelectionSweep(_state->selection.selectFromAnchor(item, true));
    else if ((modifiers & Qt::ControlModifier) == 0)
        afterSelectionSweep(_state->selection.selectOnly(item));
}

void QTeskelListBox::dragTo(QPoint position)
{
    auto& pointer = _state->pointer;
    pointer.lastPosition = position;
    const QRect view = viewport()->rect();
    if (view.contains(position))
        _state->scrollTimer->stop();
    else if (!_state->scrollTimer->isActive())
        _state->scrollTimer->start();

    QTeskelListBoxItem* const reached = itemAt({qBound(view.left(), position.x(), view.right()),
                                                qBound(view.top(), position.y(), view.bottom())});
    if (reached == nullptr || reached == _state->selection.current())
        return;
    teskel::ListBoxEmission emission(this, reached);
    selectByMove(reached, Qt::ShiftModifier);
    if (emission.isAlive() && selectionMode() == Multi)
        setSelected(reached, pointer.dragSelects);
}

/// Forgets the press, as its release may never arrive.
void QTeskelListBox::endDrag()
{
    auto& pointer = _state->pointer;
    pointer.isDown = pointer.drags = false;
    pointer.pressed = nullptr;
    _state->scrollTimer->stop();
}

void QTeskelListBox::hideEvent(QHideEvent* event)
{
    endDrag();
    QTeskelScrollView::hideEvent(event);
}

void QTeskelListBox::doAutoScroll()
{
    const auto& pointer = _state->pointer;
    if (!pointer.drags || teskel::isReleaseLost(this)) {
        endDrag();
        return;
    }
    const auto direction = [](int position, int first, int last) {
        return position < first ? -1 : position > last ? 1 : 0;
    };
    const QRect view = viewport()->rect();
    const QPoint at = pointer.lastPosition;
    const teskel::ListBoxEmission emission(this, nullptr);
    scrollBy(direction(at.x(), view.left(), view.right()) * horizontalScrollBar()->lineStep(),
             direction(at.y(), view.top(), view.bottom()) * verticalScrollBar()->lineStep());
    if (emission.isAlive())
        dragTo(at);
}

void QTeskelListBox::hoverAt(QPoint position)
{
    auto& pointer = _state->pointer;
    QTeskelListBoxItem* const item = itemAt(position);
    if (item == pointer.hovered && (item != nullptr || pointer.hoversViewport))
        return;
    pointer.hovered = item;
    pointer.hoversViewport = item == nullptr;
    if (item != nullptr)
        emit onItem(item);
    else
        emit onViewport();
}
