// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistbox.h"

#include "base/assertion.h"
#include "widgets/listbox/listboxaccessible.h"
#include "widgets/listbox/listboxemission.h"
#include "widgets/listbox/qteskellistboxpixmap.h"
#include "widgets/listbox/qteskellistboxtext.h"

#include <QPixmap>
#include <QPointer>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto unit = "qteskellistbox.cpp";
constexpr int scrollInterval = 100;
} // namespace

QTeskelListBox::QTeskelListBox(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QTeskelScrollView(parent, name, flags)
    , _state(std::make_unique<teskel::ListBoxState>(this))
{
    teskel::ListBoxAccessible::install();
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);

    _state->updateTimer->setObjectName(u"listbox update timer"_s);
    _state->updateTimer->setSingleShot(true);
    connect(_state->updateTimer, &QTimer::timeout, this, &QTeskelListBox::refreshSlot);
    _state->visibleTimer->setObjectName(u"listbox visible timer"_s);
    _state->visibleTimer->setSingleShot(true);
    connect(_state->visibleTimer, &QTimer::timeout, this, &QTeskelListBox::ensureCurrentVisible);
    _state->scrollTimer->setObjectName(u"listbox scroll timer"_s);
    _state->scrollTimer->setInterval(scrollInterval);
    connect(_state->scrollTimer, &QTimer::timeout, this, &QTeskelListBox::doAutoScroll);
    connect(_state->typeAhead, &teskel::ListBoxTypeAhead::expired, this,
            &QTeskelListBox::clearInputString);
}

QTeskelListBox::~QTeskelListBox()
{
    deleteItems();
    // An item that appeared while the others were deleted is nobody's, but must not point here.
    while (!_state->model.isEmpty())
        _state->model.take(_state->model.item(0));
}

int QTeskelListBox::count() const
{
    return _state->model.count();
}

void QTeskelListBox::insertAt(QTeskelListBoxItem* item, int index)
{
    if (item == nullptr)
        return;
    const QPointer<QTeskelListBox> self(this);
    if (item->listBox() != nullptr)
        item->listBox()->takeItem(item);
    if (!self)
        return;
    _state->model.insert(item, index);
    triggerUpdate(true);
}

void QTeskelListBox::insertItem(QTeskelListBoxItem* item, int index)
{
    insertAt(item, index);
}

void QTeskelListBox::insertItem(QTeskelListBoxItem* item, const QTeskelListBoxItem* after)
{
    const int place = index(after);
    insertAt(item, after == nullptr ? 0 : place < 0 ? -1 : place + 1);
}

void QTeskelListBox::insertItem(const QString& text, int index)
{
    insertAt(new QTeskelListBoxText(text), index);
}

void QTeskelListBox::insertItem(const QPixmap& pixmap, int index)
{
    insertAt(new QTeskelListBoxPixmap(pixmap), index);
}

void QTeskelListBox::insertItem(const QPixmap& pixmap, const QString& text, int index)
{
    insertAt(new QTeskelListBoxPixmap(pixmap, text), index);
}

void QTeskelListBox::insertStringList(const QStringList& texts, int index)
{
    for (const QString& text : texts)
        insertAt(new QTeskelListBoxText(text), index < 0 ? index : index++);
}

void QTeskelListBox::inSort(QTeskelListBoxItem* item)
{
    if (item != nullptr)
        insertAt(item, _state->model.sortedIndex(item->text()));
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
    teskel::ListBoxEmission emission(this, old);
    insertAt(item, index);
    if (emission.isAlive() && old->current())
        setCurrentItem(item);
    if (emission.isAlive())
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
    const bool wasCurrent = item == _state->selection.current();
    const bool wasSelected = item->selected();
    auto& pointer = _state->pointer;
    if (pointer.pressed == item)
        endDrag();
    if (pointer.hovered == item)
        pointer.hovered = nullptr;
    item->releaseAccessible();
    _state->selection.forget(item);
    _state->model.take(item);
    teskel::ListBoxModel::mark(item, false);
    triggerUpdate(true);
    if (!wasCurrent)
        return;
    if (count() > 0) {
        setCurrentItem(qMin(place, count() - 1));
    } else {
        teskel::ListBoxEmission emission(this, nullptr);
        if (wasSelected)
            emission.emitSignal(qOverload<>(&QTeskelListBox::selectionChanged));
        emission.emitSignal(&QTeskelListBox::currentChanged, nullptr);
    }
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
    for (; i > 0 && !_state->model.isEmpty(); --i) {
        QTeskelListBoxItem* const last = _state->model.item(count() - 1);
        last->releaseAccessible();
        _state->selection.forget(last);
        _state->model.take(last);
        delete last;
    }
    // Both fail only when an item's destructor changes the list.
    TESKEL_ASSERT(i == 0, "i==0", unit);
    TESKEL_ASSERT(_state->model.isEmpty(), "!head", unit);
    _state->pointer = {};
    _state->visibleTimer->stop();
    _state->scrollTimer->stop();
    clearInputString();
    triggerUpdate(true);
}

void QTeskelListBox::sort(bool ascending)
{
    _state->model.sort(ascending);
    triggerUpdate(true);
}

QTeskelListBoxItem* QTeskelListBox::item(int index) const
{
    return _state->model.item(index);
}

int QTeskelListBox::index(const QTeskelListBoxItem* item) const
{
    return _state->model.index(item);
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

QTeskelListBoxItem* QTeskelListBox::findItem(const QString& text) const
{
    return _state->model.findPrefix(text);
}

void QTeskelListBox::itemTextChanged(const QTeskelListBoxItem* item)
{
    triggerUpdate(true);
    teskel::ListBoxAccessible::announceText(this, index(item));
}
