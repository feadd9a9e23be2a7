// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistbox.h"

#include "base/assertion.h"
#include "widgets/listbox/listboxaccessible.h"
#include "widgets/listbox/qteskellistboxpixmap.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QEvent>
#include <QPixmap>
#include <QSignalBlocker>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto unit = "qteskellistbox.cpp";
constexpr int visibleDelay = 1;
} // namespace

QTeskelListBox::QTeskelListBox(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QTeskelScrollView(parent, name, flags)
    , _model(this)
    , _selection(_model)
    , _grid(*this, _model)
    , _choice(_model, _selection, *this)
    , _keys(*this, _model, _selection, _grid, *this, _choice)
    , _pointer(*this, _model, _selection, _grid, *this, _choice)
    , _painter(*this, _model, _selection, _grid)
    , _visibleTimer(new QTimer(this))
{
    QAccessible::installFactory(makeAccessible);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);

    _visibleTimer->setObjectName(u"listbox visible timer"_s);
    _visibleTimer->setSingleShot(true);
    connect(_visibleTimer, &QTimer::timeout, this, &QTeskelListBox::ensureCurrentVisible);
}

QTeskelListBox::~QTeskelListBox()
{
    deleteItems();
    // An item that appeared while the others were deleted is nobody's, but must not point here.
    while (!_model.isEmpty())
        _model.take(_model.item(0));
}

QAccessibleInterface* QTeskelListBox::makeAccessible(const QString& className, QObject* object)
{
    auto* const list =
        className == "QTeskelListBox"_L1 ? qobject_cast<QTeskelListBox*>(object) : nullptr;
    if (list == nullptr)
        return nullptr;
    return new teskel::ListBoxAccessible(
        {*list, list->_model, list->_selection, list->_grid, *list, list->_choice});
}

void QTeskelListBox::insertItem(QTeskelListBoxItem* item, int index)
{
    if (item == nullptr)
        return;
    const teskel::ListBoxWatch watch = _model.watch();
    if (item->listBox() != nullptr)
        item->listBox()->takeItem(item);
    if (!watch.isAlive())
        return;
    _model.insert(item, index);
    triggerUpdate(true);
}

void QTeskelListBox::insertItem(QTeskelListBoxItem* item, const QTeskelListBoxItem* after)
{
    const int place = index(after);
    insertItem(item, after == nullptr ? 0 : place < 0 ? -1 : place + 1);
}

void QTeskelListBox::insertItem(const QString& text, int index)
{
    insertItem(new QTeskelListBoxText(text), index);
}

void QTeskelListBox::insertItem(const QPixmap& pixmap, int index)
{
    insertItem(new QTeskelListBoxPixmap(pixmap), index);
}

void QTeskelListBox::insertItem(const QPixmap& pixmap, const QString& text, int index)
{
    insertItem(new QTeskelListBoxPixmap(pixmap, text), index);
}

void QTeskelListBox::insertStringList(const QStringList& texts, int index)
{
    for (const QString& text : texts)
        insertItem(new QTeskelListBoxText(text), index < 0 ? index : index++);
}

void QTeskelListBox::inSort(QTeskelListBoxItem* item)
{
    if (item != nullptr)
        insertItem(item, _model.sortedIndex(item->text()));
}

void QTeskelListBox::inSort(const QString& text)
{
    inSort(new QTeskelListBoxText(text));
}

void QTeskelListBox::changeItem(QTeskelListBoxItem* item, int index)
{
    QTeskelListBoxItem* const old = this->item(index);
    if (item == nullptr || old == nullptr || item == old)
        return;
    const teskel::ListBoxWatch watch = _model.watch(old);
    insertItem(item, index);
    if (watch.isAlive() && old->current())
        setCurrentItem(item);
    if (watch.isAlive())
        delete old;
}

void QTeskelListBox::changeItem(const QString& text, int index)
{
    if (item(index) != nullptr)
        changeItem(new QTeskelListBoxText(text), index);
}

void QTeskelListBox::changeItem(const QPixmap& pixmap, int index)
{
    changeItem(pixmap, QString(), index);
}

void QTeskelListBox::changeItem(const QPixmap& pixmap, const QString& text, int index)
{
    if (item(index) != nullptr)
        changeItem(new QTeskelListBoxPixmap(pixmap, text), index);
}

void QTeskelListBox::removeItem(int index)
{
    delete item(index);
}

void QTeskelListBox::takeItem(QTeskelListBoxItem* item)
{
    const int place = index(item);
    if (place < 0)
        return;
    const bool wasCurrent = item == _selection.current();
    const bool wasSelected = item->selected();
    _pointer.forget(item);
    _selection.forget(item);
    _model.take(item);
    teskel::ListBoxModel::mark(item, false);
    triggerUpdate(true);
    if (!wasCurrent)
        return;
    if (count() > 0) {
        setCurrentItem(qMin(place, count() - 1));
        return;
    }
    const teskel::ListBoxWatch watch = _model.watch();
    if (wasSelected)
        emit selectionChanged();
    if (watch.isAlive())
        emit currentChanged(nullptr);
}

void QTeskelListBox::clear()
{
    deleteItems();
    setContentsPos(0, 0);
}

void QTeskelListBox::deleteItems()
{
    const QSignalBlocker blocker(this);
    int i = count();
    for (; i > 0 && !_model.isEmpty(); --i) {
        QTeskelListBoxItem* const last = _model.item(count() - 1);
        _selection.forget(last);
        _model.take(last);
        delete last;
    }
    // Both fail only when an item's destructor changes the list.
    TESKEL_ASSERT(i == 0, "i==0", unit);
    TESKEL_ASSERT(_model.isEmpty(), "!head", unit);
    _pointer.reset();
    _visibleTimer->stop();
    clearInputString();
    triggerUpdate(true);
}

void QTeskelListBox::sort(bool ascending)
{
    _model.sort(ascending);
    triggerUpdate(true);
}

QString QTeskelListBox::text(int index) const
{
    const QTeskelListBoxItem* found = item(index);
    return found == nullptr ? QString() : found->text();
}

const QPixmap* QTeskelListBox::pixmap(int index) const
{
    const QTeskelListBoxItem* found = item(index);
    return found == nullptr ? nullptr : found->pixmap();
}

void QTeskelListBox::setCurrentItem(QTeskelListBoxItem* item)
{
    if (index(item) < 0 || item == _selection.current())
        return;
    const teskel::ListBoxWatch watch = _model.watch(item);
    const teskel::ListBoxWatch previous = _model.watch(_selection.current());
    const auto change = _selection.makeCurrent(item);
    if (change.itemSelected)
        emit selectionChanged(item);
    if (change.selectionChanged && watch.isAlive())
        emit selectionChanged();
    // An item that went asks for a repaint of everything.
    if (!watch.isAlive())
        return;
    if (previous.isAlive())
        _grid.updateItem(change.previous);
    _grid.updateItem(item);
    _visibleTimer->start(visibleDelay);
    if (reportHighlighted(item) && change.itemSelected)
        teskel::ListBoxAccessible::announceSelected(this, index(item));
}

void QTeskelListBox::setSelected(QTeskelListBoxItem* item, bool select)
{
    if (index(item) < 0)
        return;
    const teskel::ListBoxWatch watch = _model.watch(item);
    const auto change = _selection.select(item, select);
    if (!change.selectionChanged)
        return;
    _grid.updateItem(change.previous);
    _grid.updateItem(item);
    if (change.itemSelected)
        emit selectionChanged(item);
    if (watch.isAlive())
        emit selectionChanged();
    if (change.currentMoved && watch.isAlive())
        reportHighlighted(item);
    if (select && watch.isAlive())
        teskel::ListBoxAccessible::announceSelected(this, index(item));
}

bool QTeskelListBox::isSelected(const QTeskelListBoxItem* item) const
{
    return index(item) >= 0 && item->selected();
}

/// False when the item or the list box is gone then.
bool QTeskelListBox::reportHighlighted(QTeskelListBoxItem* item)
{
    const int place = index(item);
    const QString text = item->text();
    const teskel::ListBoxWatch watch = _model.watch(item);
    emit highlighted(item);
    if (!text.isEmpty() && watch.isAlive())
        emit highlighted(text);
    return watch.run([&] { emit highlighted(place); }, [&] { emit currentChanged(item); },
                     [&] { teskel::ListBoxAccessible::announceCurrent(this, index(item)); });
}

void QTeskelListBox::reportSelection()
{
    triggerUpdate(false);
    teskel::ListBoxAccessible::announceSelection(this);
    emit selectionChanged();
}

void QTeskelListBox::reportSelected(QTeskelListBoxItem* item)
{
    const QString text = item->text();
    const bool isAlive =
        _model.watch(item).run([&] { emit selected(index(item)); }, [&] { emit selected(item); });
    if (isAlive && !text.isEmpty())
        emit selected(text);
}

void QTeskelListBox::reportPressed(int button, QTeskelListBoxItem* item, const QPoint& position)
{
    const bool isAlive =
        _model.watch(item).run([&] { emit pressed(item); }, [&] { emit pressed(item, position); },
                               [&] { emit mouseButtonPressed(button, item, position); });
    if (isAlive && button == Qt::RightButton)
        emit rightButtonPressed(item, position);
}

void QTeskelListBox::reportClicked(int button, QTeskelListBoxItem* item, const QPoint& position)
{
    const bool isAlive =
        _model.watch(item).run([&] { emit clicked(item); }, [&] { emit clicked(item, position); },
                               [&] { emit mouseButtonClicked(button, item, position); });
    if (isAlive && button == Qt::RightButton)
        emit rightButtonClicked(item, position);
}

void QTeskelListBox::reportHovered(QTeskelListBoxItem* item)
{
    if (item != nullptr)
        emit onItem(item);
    else
        emit onViewport();
}

void QTeskelListBox::setHScrollBarMode(ScrollBarMode mode)
{
    QTeskelScrollView::setHScrollBarMode(mode);
    triggerUpdate(true);
}

void QTeskelListBox::adjustItems()
{
    _grid.setLayoutNeeded();
    viewport()->update();
    _grid.fitContents();
}

void QTeskelListBox::drawContents(QPainter* painter, const QRect& clip)
{
    _grid.setPainted();
    _painter.paintCells(painter, clip,
                        [&](int row, int column) { paintCell(painter, row, column); });
}

void QTeskelListBox::focusInEvent(QFocusEvent* event)
{
    QTeskelScrollView::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && currentItem() < 0 && count() > 0 &&
        !_choice.takeFirst())
        return;
    _grid.updateItem(_selection.current());
}

void QTeskelListBox::focusOutEvent(QFocusEvent* event)
{
    QTeskelScrollView::focusOutEvent(event);
    _grid.updateItem(_selection.current());
}

void QTeskelListBox::resizeEvent(QResizeEvent* event)
{
    _grid.setLayoutNeeded();
    if (_grid.fitContents())
        QTeskelScrollView::resizeEvent(event);
}

void QTeskelListBox::showEvent(QShowEvent* event)
{
    QTeskelScrollView::showEvent(event);
    _grid.fitContents();
}

void QTeskelListBox::hideEvent(QHideEvent* event)
{
    _pointer.endDrag();
    QTeskelScrollView::hideEvent(event);
}

void QTeskelListBox::changeEvent(QEvent* event)
{
    QTeskelScrollView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        triggerUpdate(true);
}

namespace teskel
{

void ListBoxItemHost::append(List* list, Item* item)
{
    list->insertItem(item);
}

void ListBoxItemHost::insertAfter(List* list, Item* item, const Item* after)
{
    list->insertItem(item, after);
}

void ListBoxItemHost::take(List* list, Item* item)
{
    list->takeItem(item);
}

/// Asks for the item's place only where somebody wants to hear of it.
void ListBoxItemHost::textChanged(List* list, const Item* item)
{
    list->triggerUpdate(true);
    if (ListBoxAccessible::isHeard())
        ListBoxAccessible::announceText(list, list->index(item));
}

bool ListBoxItemHost::isCurrent(const List* list, const Item* item)
{
    return list->item(list->currentItem()) == item;
}

QTeskelListBoxItem* ListBoxItemHost::neighbour(const List* list, const Item* item, int places)
{
    return list->item(list->index(item) + places);
}

QFontMetrics ListBoxItemHost::fontMetrics(const List* list)
{
    return list->fontMetrics();
}

} // namespace teskel
