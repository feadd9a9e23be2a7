// SPDX-License-Identifier: MIT
#include "files/qteskelfileselectorview.h"

#include "files/dictionarydirectories.h"
#include "files/dictionarylistitem.h"
#include "platform/qcopchannel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace
{

/// Whether the key types a visible character, as opposed to moving, editing or modifying.
bool isOrdinaryCharacter(const QKeyEvent* event)
{
    constexpr int firstFunctionKey = 0x01000000;
    const QString text = event->text();
    return !text.isEmpty() && text.front() > u' ' && event->key() < firstFunctionKey;
}

} // namespace

QTeskelFileSelectorView::QTeskelFileSelectorView(QWidget* parent, const char* name)
    : QTreeWidget(parent)
{
    setObjectName(QString::fromUtf8(name));
    setAllColumnsShowFocus(true);
    setColumnCount(1);
    setHeaderLabel(tr("Name"));
    setAccessibleName(tr("Dictionaries"));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    setMediaFilter(MediaFilter::AllFiles);
    auto* cards = new QCopChannel("QPE/Card", this);
    connect(cards, &QCopChannel::received, this, &QTeskelFileSelectorView::cardMessage);
}

void QTeskelFileSelectorView::append(const QString& directory)
{
    const QFileInfoList entries = teskel::dictionaryEntries(directory);
    for (const QFileInfo& entry : entries)
        new DictionaryListItem(this, entry.baseName(), entry.absoluteFilePath());
}

MediaFilter QTeskelFileSelectorView::getMediaFilter() const
{
    return _mediaFilter;
}

void QTeskelFileSelectorView::setMediaFilter(MediaFilter filter)
{
    _mediaFilter = filter;
    reread();
}

int QTeskelFileSelectorView::fileCount() const
{
    return _fileCount;
}

void QTeskelFileSelectorView::keyboardSearch(const QString& /*search*/) {}

void QTeskelFileSelectorView::reread()
{
    clear();
}

void QTeskelFileSelectorView::cardMessage(const QByteArray& message, const QByteArray& /*data*/)
{
    if (message == "mtabChanged()")
        reread();
}

void QTeskelFileSelectorView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Space) {
        event->accept();
        emit returnPressed(currentItem());
    } else if (isOrdinaryCharacter(event)) {
        event->ignore();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        // Left to the parent as well, so that a dialog around the list sees its Return.
        event->ignore();
        emit returnPressed(currentItem());
    } else {
        QTreeWidget::keyPressEvent(event);
    }
}

void QTeskelFileSelectorView::mousePressEvent(QMouseEvent* event)
{
    QTreeWidget::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    _pressed = true;
    _pressedIndex = index;
    emit mouseButtonPressed(static_cast<int>(event->button()), itemFromIndex(index),
                            event->globalPosition().toPoint(), index.column());
}

void QTeskelFileSelectorView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeWidget::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool clicked = std::exchange(_pressed, false) && _pressedIndex == index;
    _pressedIndex = QPersistentModelIndex();
    if (clicked) {
        // The last thing done here: who listens may well close the list.
        emit mouseButtonClicked(static_cast<int>(event->button()), itemFromIndex(index),
                                event->globalPosition().toPoint(), index.column());
    }
}

void QTeskelFileSelectorView::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    header()->resizeSections(QHeaderView::ResizeToContents);
}

/// At least the width of the view, so that a row can be tapped anywhere.
int QTeskelFileSelectorView::sizeHintForColumn(int column) const
{
    return std::max(QTreeWidget::sizeHintForColumn(column), viewport()->width());
}
