// SPDX-License-Identifier: MIT
#pragma once

#include "files/mediafilter.h"

#include <QString>
#include <QWidget>

class QPoint;
class QTeskelFileSelectorView;
class QTeskelSelectorMenu;
class QToolButton;
class QTreeWidgetItem;

/// A panel for choosing a dictionary file: a filter menu, a close button and the list.
///
/// Its owner fills the list through view() and refills it when the filter or the cards change.
class QTeskelFileSelector : public QWidget
{
    Q_OBJECT

public:
    explicit QTeskelFileSelector(QWidget* parent, const char* name = nullptr);

    /// Path of the current item; empty when there is none.
    QString selected() const;
    /// The list, owned by the panel.
    QTeskelFileSelectorView* view() const;
    /// The filter menu, owned by the panel.
    QTeskelSelectorMenu* menu() const;

signals:
    /// The user chose the file at `path`.
    void fileSelected(const QString& path);
    /// The panel is done and asks its owner to close it.
    void closeMe();

public slots:
    /// Chooses `item` when it was clicked with the left button (1).
    void fileClicked(int button, QTreeWidgetItem* item, const QPoint& pos, int column);
    /// Does nothing: choosing waits for the release.
    void filePressed(int button, QTreeWidgetItem* item, const QPoint& pos, int column);
    /// Chooses `item`: reports its path, then asks to be closed. Null does nothing.
    void fileClicked(QTreeWidgetItem* item);
    /// Empties the list.
    void reread();
    /// Hands `filter` to the list, which empties itself.
    void filterChanged(MediaFilter filter);

private:
    QWidget* createTopRow();

    QTeskelFileSelectorView* _view = nullptr;
    QToolButton* _closeButton = nullptr;
    QTeskelSelectorMenu* _menu = nullptr;
};
