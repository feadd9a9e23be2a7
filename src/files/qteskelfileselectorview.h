// SPDX-License-Identifier: MIT
#pragma once

#include "files/mediafilter.h"

#include <QByteArray>
#include <QPersistentModelIndex>
#include <QString>
#include <QTreeWidget>

/// The selector's list of dictionary files, sorted by name.
///
/// Its owner fills it by append(); a change of the filter or of the mounted cards empties it. It
/// reports mouse buttons and Return itself, and lets typed characters travel on to its parent.
class QTeskelFileSelectorView : public QTreeWidget
{
    Q_OBJECT

public:
    explicit QTeskelFileSelectorView(QWidget* parent, const char* name = nullptr);

    /// Adds one item for every entry of `directory` that discovery would see, links included.
    void append(const QString& directory);

    MediaFilter getMediaFilter() const;
    /// Stores `filter` and empties the list.
    void setMediaFilter(MediaFilter filter);
    /// Always 0: nothing counts the files.
    int fileCount() const;

    /// Does nothing: letters are not for searching here.
    void keyboardSearch(const QString& search) override;

signals:
    /// Return, Enter or Space with `item` current; null when none is.
    void returnPressed(QTreeWidgetItem* item);
    /// A button (1 left, 2 right) went down at `pos` of the screen; `item` is null and `column` -1
    /// beside the items.
    void mouseButtonPressed(int button, QTreeWidgetItem* item, const QPoint& pos, int column);
    /// The same for a button released on the item that it was pressed on, or on none both times.
    void mouseButtonClicked(int button, QTreeWidgetItem* item, const QPoint& pos, int column);

public slots:
    /// Empties the list.
    void reread();
    /// Empties the list when the message says that cards came or went.
    void cardMessage(const QByteArray& message, const QByteArray& data);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    int sizeHintForColumn(int column) const override;

private:
    int _fileCount = 0;
    MediaFilter _mediaFilter = MediaFilter::AllFiles;
    bool _pressed = false;
    QPersistentModelIndex _pressedIndex;
};
