// SPDX-License-Identifier: MIT
#include "lookup/qdictionarylistbox.h"

#include "base/assertion.h"
#include "dictionary/dictionary.h"
#include "lookup/navigationevent.h"
#include "lookup/qdictionarylistboxitem.h"
#include "widgets/scrolling/qteskelscrollbar.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QResizeEvent>

#include <memory>
#include <utility>

namespace
{

constexpr auto unit = "qdictionarylistbox.cpp";

/// Which way a navigation key leads: -1 back, 1 forth, 0 for any other key.
int directionOf(int key)
{
    switch (key) {
    case Qt::Key_Home:
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        return -1;
    case Qt::Key_End:
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        return 1;
    default:
        return 0;
    }
}

} // namespace

QDictionaryListBox::QDictionaryListBox(Dictionary* dictionary, QWidget* parent, const char* name,
                                       Qt::WindowFlags f)
    : QTeskelListBox(parent, name, f)
    , _dictionary(dictionary)
{
    QTeskelScrollBar* const bar = verticalScrollBar();
    bar->setTracking(false);
    setHScrollBarMode(AlwaysOff);
    setVScrollBarMode(AlwaysOn);
    connect(bar, &QTeskelScrollBar::nextLine, this, &QDictionaryListBox::nextLine);
    connect(bar, &QTeskelScrollBar::prevLine, this, &QDictionaryListBox::prevLine);
    // The bar adds its step to what nextLine() and prevLine() scrolled.
    connect(bar, &QTeskelScrollBar::valueChanged, this, [this, bar] {
        if (bar->steppingLine())
            ensureCurrentVisible();
    });
}

void QDictionaryListBox::fill(CursorPosition start)
{
    const std::unique_ptr<DictionaryIterator> iterator(_dictionary->createIterator());
    teskel::verify(iterator->isValid(start), "iterator->isValid(start)", unit, 134);

    const CursorPosition top = topNear(*iterator, start);
    const Rewritten rows = rewriteRows(*iterator, top, start);
    const int selected = rows.found >= 0 ? rows.found : currentItem();
    const QPointer<QDictionaryListBox> self(this);
    setSelected(selected, true);
    if (!self)
        return;
    // First, so that the rows are laid out but once. Of what is typed many a letter leaves the
    // words as they are, and these are not painted again.
    if (rows.changed)
        adjustScrollBars();
    ensureCurrentVisible();
}

void QDictionaryListBox::move(int lines)
{
    const QDictionaryListBoxItem* const first = firstRow();
    if (lines == 0 || first == nullptr)
        return;
    const std::unique_ptr<DictionaryIterator> iterator(_dictionary->createIterator());
    CursorPosition top = iterator->move(first->getCursorPosition(), lines);
    if (lines > 0)
        top = topNear(*iterator, top);
    else if (!iterator->isValid(top))
        top = iterator->begin();
    rewriteRows(*iterator, top, CursorPosition::invalid());

    adjustScrollBars();
    if (currentItem() < 0)
        return;
    const QPointer<QDictionaryListBox> self(this);
    ensureCurrentVisible();
    if (self)
        emit selectionChanged(item(currentItem()));
}

void QDictionaryListBox::adjustScrollBars()
{
    triggerUpdate(true);
}

void QDictionaryListBox::resizeContents(int width, int height)
{
    if (count() > 0)
        verticalScrollBar()->setLineStep(itemHeight());
    QTeskelListBox::resizeContents(width, height);
}

void QDictionaryListBox::nextLine()
{
    const int current = currentItem();
    if (current < 0) {
        move(1);
        return;
    }
    const QPointer<QDictionaryListBox> self(this);
    tellParent(teskel::navigationStart);
    if (self && isLastRowCurrent())
        move(1);
    else if (self)
        setSelected(current + 1, true);
    if (self)
        ensureCurrentVisible();
    if (self)
        tellParent(teskel::navigationFinish);
}

// Unlike nextLine, no events when a word scrolls in: that word enters the history.
void QDictionaryListBox::prevLine()
{
    if (isFirstRowCurrent()) {
        move(-1);
        return;
    }
    const QPointer<QDictionaryListBox> self(this);
    tellParent(teskel::navigationStart);
    if (self && currentItem() > 0)
        setSelected(currentItem() - 1, true);
    if (self)
        tellParent(teskel::navigationFinish);
    if (self)
        ensureCurrentVisible();
}

void QDictionaryListBox::keyPressEvent(QKeyEvent* e)
{
    const QPointer<QDictionaryListBox> self(this);
    if (directionOf(e->key()) != 0)
        tellParent(teskel::navigationStart);
    if (self)
        QTeskelListBox::keyPressEvent(e);
}

// The press moves the current row; the words scroll when the key comes up.
void QDictionaryListBox::keyReleaseEvent(QKeyEvent* e)
{
    const int direction = directionOf(e->key());
    if (direction == 0) {
        QWidget::keyReleaseEvent(e);
        return;
    }
    const QPointer<QDictionaryListBox> self(this);
    if (direction < 0 ? isFirstRowCurrent() : isLastRowCurrent())
        move(direction);
    if (self)
        tellParent(teskel::navigationFinish);
}

void QDictionaryListBox::resizeEvent(QResizeEvent* event)
{
    const QPointer<QDictionaryListBox> self(this);
    // The event does not know it when the list was hidden meanwhile.
    const int oldHeight = std::exchange(_viewHeight, event->size().height());
    const bool wasInView = isCurrentInView(oldHeight);
    QTeskelListBox::resizeEvent(event);
    if (self && wasInView)
        ensureCurrentVisible();
}

bool QDictionaryListBox::isCurrentInView(int viewportHeight) const
{
    const QRect row = itemRect(item(currentItem()));
    return row.isValid() && row.bottom() >= 0 && row.top() < viewportHeight;
}

bool QDictionaryListBox::isFirstRowCurrent() const
{
    return currentItem() == 0;
}

bool QDictionaryListBox::isLastRowCurrent() const
{
    return currentItem() >= 0 && currentItem() == count() - 1;
}

QDictionaryListBoxItem* QDictionaryListBox::row(int index) const
{
    return dynamic_cast<QDictionaryListBoxItem*>(item(index));
}

QDictionaryListBoxItem* QDictionaryListBox::firstRow() const
{
    QDictionaryListBoxItem* first = nullptr;
    for (int index = 0; first == nullptr && index < count(); ++index)
        first = row(index);
    return first;
}

void QDictionaryListBox::tellParent(QEvent::Type type)
{
    if (parent() == nullptr)
        return;
    QEvent event(type);
    QCoreApplication::sendEvent(parent(), &event);
}

/// The top row that shows `wanted` as high as the rows can be filled.
///
/// Invalid if `wanted` is.
CursorPosition QDictionaryListBox::topNear(DictionaryIterator& iterator,
                                           CursorPosition wanted) const
{
    if (iterator.isValid(iterator.move(wanted, count())))
        return wanted;

    // Bounded, so that a dictionary whose reads fail and recover cannot hold the walk.
    CursorPosition last = CursorPosition::invalid();
    CursorPosition next = wanted;
    for (int steps = 0; steps <= count() && iterator.isValid(next); ++steps) {
        last = next;
        next = iterator.move(next, 1);
    }
    // A dictionary of fewer words than rows starts at its first word.
    CursorPosition top = last;
    for (int steps = 1; steps < count(); ++steps) {
        const CursorPosition previous = iterator.move(top, -1);
        if (!iterator.isValid(previous))
            break;
        top = previous;
    }
    return top;
}

/// Writes the words from `top` on into the rows.
QDictionaryListBox::Rewritten QDictionaryListBox::rewriteRows(DictionaryIterator& iterator,
                                                              CursorPosition top,
                                                              CursorPosition sought)
{
    Rewritten rows;
    CursorPosition position = top;
    for (int index = 0; index < count(); ++index) {
        QDictionaryListBoxItem* const item = row(index);
        if (item == nullptr)
            continue;
        QString text;
        if (iterator.setPosition(position)) {
            text = QString::fromLatin1(iterator.getWord());
            item->setCursorPosition(position);
            if (position == sought)
                rows.found = index;
        } else {
            item->setCursorPosition(CursorPosition::invalid());
        }
        if (text != item->text()) {
            item->setText(text);
            rows.changed = true;
        }
        position = iterator.move(position, 1);
    }
    return rows;
}
