// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxactions.h"
#include "widgets/listbox/listboxchoice.h"
#include "widgets/listbox/listboxenums.h"
#include "widgets/listbox/listboxgrid.h"
#include "widgets/listbox/listboxkeycontroller.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxpainter.h"
#include "widgets/listbox/listboxpointercontroller.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QStringList>

class QAccessibleInterface;
class QTimer;

/// A list of items to look at and choose from, in one column or several.
///
/// The list box owns its items. Indexes count from 0; an index that does not exist, and a null
/// item, are ignored, or answered with -1, null or an empty text. Slots may remove items or delete
/// the list box while it emits.
///
/// Wires its parts and reports what they do: the model holds the items, the grid lays them out, the
/// selection knows the rules of the selection modes, the painter paints, and the controllers turn
/// keys and the pointer into actions.
class QTeskelListBox : public QTeskelScrollView, private teskel::ListBoxActions
{
    Q_OBJECT

public:
    using SelectionMode = teskel::ListBoxSelectionMode;
    using LayoutMode = teskel::ListBoxLayoutMode;
    using enum teskel::ListBoxSelectionMode;
    using enum teskel::ListBoxLayoutMode;

    explicit QTeskelListBox(QWidget* parent = nullptr, const char* name = nullptr,
                            Qt::WindowFlags flags = {});
    ~QTeskelListBox() override;
    Q_DISABLE_COPY_MOVE(QTeskelListBox)

    // Items
    int count() const { return _model.count(); }
    /// Inserts before `index`; a negative index, or one past the end, appends.
    void insertItem(QTeskelListBoxItem* item, int index = -1);
    /// Inserts behind `after`; at the beginning when that is null.
    void insertItem(QTeskelListBoxItem* item, const QTeskelListBoxItem* after);
    void insertItem(const QString& text, int index = -1);
    void insertItem(const QPixmap& pixmap, int index = -1);
    void insertItem(const QPixmap& pixmap, const QString& text, int index = -1);
    void insertStringList(const QStringList& texts, int index = -1);
    /// Inserts where the text belongs in a list sorted upwards.
    void inSort(QTeskelListBoxItem* item);
    void inSort(const QString& text);
    /// Puts another item in the place of the one at `index`, which is deleted.
    void changeItem(QTeskelListBoxItem* item, int index);
    void changeItem(const QString& text, int index);
    void changeItem(const QPixmap& pixmap, int index);
    void changeItem(const QPixmap& pixmap, const QString& text, int index);
    /// Deletes the item at `index`.
    void removeItem(int index);
    /// Takes the item out without deleting it; the caller owns it.
    void takeItem(QTeskelListBoxItem* item);
    /// Deletes all items, of which no signal tells, and goes back to the top of the contents.
    virtual void clear();
    /// Sorts by text; items of the same text keep their order.
    void sort(bool ascending = true);

    QTeskelListBoxItem* item(int index) const { return _model.item(index); }
    QTeskelListBoxItem* firstItem() const { return item(0); }
    int index(const QTeskelListBoxItem* item) const { return _model.index(item); }
    QString text(int index) const;
    const QPixmap* pixmap(int index) const;
    /// The first item that begins with `text`, whatever the case.
    QTeskelListBoxItem* findItem(const QString& text) const { return _model.findPrefix(text); }

    // Current item and selection
    int currentItem() const { return index(_selection.current()); }
    QString currentText() const { return text(currentItem()); }
    void setCurrentItem(int index) { setCurrentItem(item(index)); }
    void setCurrentItem(QTeskelListBoxItem* item) override;
    SelectionMode selectionMode() const { return _selection.mode(); }
    void setSelectionMode(SelectionMode mode) { reportSweep(_selection.setMode(mode)); }
    void setMultiSelection(bool multi) { setSelectionMode(multi ? Multi : Single); }
    bool isMultiSelection() const { return _selection.holdsSeveral(); }
    void setSelected(int index, bool select) { setSelected(item(index), select); }
    void setSelected(QTeskelListBoxItem* item, bool select) override;
    bool isSelected(int index) const { return isSelected(item(index)); }
    bool isSelected(const QTeskelListBoxItem* item) const;
    /// The first selected item.
    QTeskelListBoxItem* selectedItem() const { return _model.firstSelected(); }

    // Geometry
    LayoutMode columnMode() const { return _grid.rules().columnMode; }
    LayoutMode rowMode() const { return _grid.rules().rowMode; }
    void setColumnMode(LayoutMode mode) { _grid.setColumnMode(mode); }
    void setColumnMode(int columns) { _grid.setColumns(columns); }
    void setRowMode(LayoutMode mode) { _grid.setRowMode(mode); }
    void setRowMode(int rows) { _grid.setRows(rows); }
    int numColumns() const { return _grid.layouter().columns(); }
    int numRows() const { return _grid.layouter().rows(); }
    bool variableWidth() const { return _grid.rules().variableWidth; }
    void setVariableWidth(bool variable) { _grid.setVariableWidth(variable); }
    bool variableHeight() const { return _grid.rules().variableHeight; }
    void setVariableHeight(bool variable) { _grid.setVariableHeight(variable); }
    /// Items of which at least a part is in view.
    int numItemsVisible() const { return _grid.itemsInView(); }
    bool itemVisible(int index) const { return itemVisible(item(index)); }
    bool itemVisible(const QTeskelListBoxItem* item) const { return _grid.isInView(item); }
    /// The index of the first item in view, -1 in an empty list.
    int topItem() const { return _grid.topIndex(); }
    void setTopItem(int index) override { _grid.showAtTop(index); }
    void setBottomItem(int index) override { _grid.showAtBottom(index); }
    int itemHeight(int index = 0) const { return _grid.layouter().cell(index).height(); }
    int maxItemWidth() const { return _grid.widestItem(); }
    /// The item at a position in the viewport.
    QTeskelListBoxItem* itemAt(QPoint position) const { return _grid.itemAt(position); }
    /// The item's cell in the viewport, invalid for an item of another list.
    QRect itemRect(const QTeskelListBoxItem* item) const { return _grid.rectOf(item); }
    /// The item's upper edge in the contents.
    int itemYPos(const QTeskelListBoxItem* item) const
    {
        return _grid.layouter().cell(index(item)).top();
    }
    /// Asks for one repaint, and for a layout first when `doLayout`, when control returns to the
    /// event loop; any number of calls cost one.
    void triggerUpdate(bool doLayout) { _grid.triggerUpdate(doLayout); }

    QSize sizeHint() const override { return _grid.sizeHint(); }
    void setHScrollBarMode(ScrollBarMode mode) override;

public slots:
    /// Scrolls just far enough to show the current item.
    void ensureCurrentVisible() { _grid.ensureVisible(currentItem()); }
    void clearSelection() override { reportSweep(_selection.clear()); }
    void selectAll(bool select) override { reportSweep(_selection.selectAll(select)); }
    virtual void invertSelection() { reportSweep(_selection.invert()); }
    /// Ends typing ahead.
    void clearInputString() { _keys.endTypingAhead(); }
    /// Lays out if needed, and repaints.
    void refreshSlot() { _grid.refresh(); }
    /// Scrolls on while an item is dragged outside the view.
    void doAutoScroll() { _pointer.autoScroll(); }
    /// Lays out at once.
    void adjustItems();

signals:
    void highlighted(int index);
    void selected(int index);
    void highlighted(const QString& text);
    void selected(const QString& text);
    void highlighted(QTeskelListBoxItem* item);
    void selected(QTeskelListBoxItem* item);
    void selectionChanged();
    void selectionChanged(QTeskelListBoxItem* item);
    void currentChanged(QTeskelListBoxItem* item);
    void clicked(QTeskelListBoxItem* item);
    void clicked(QTeskelListBoxItem* item, const QPoint& position);
    void pressed(QTeskelListBoxItem* item);
    void pressed(QTeskelListBoxItem* item, const QPoint& position);
    void doubleClicked(QTeskelListBoxItem* item);
    void returnPressed(QTeskelListBoxItem* item);
    void rightButtonClicked(QTeskelListBoxItem* item, const QPoint& position);
    void rightButtonPressed(QTeskelListBoxItem* item, const QPoint& position);
    void mouseButtonPressed(int button, QTeskelListBoxItem* item, const QPoint& position);
    void mouseButtonClicked(int button, QTeskelListBoxItem* item, const QPoint& position);
    void onItem(QTeskelListBoxItem* item);
    void onViewport();

protected:
    /// Paints one cell; the painter's origin is the cell's upper left corner.
    virtual void paintCell(QPainter* painter, int row, int column)
    {
        _painter.paintCell(painter, row, column);
    }

    void drawContents(QPainter* painter, const QRect& clip) override;
    void contentsMousePressEvent(QMouseEvent* event) override { _pointer.press(*event); }
    void contentsMouseReleaseEvent(QMouseEvent* event) override { _pointer.release(*event); }
    void contentsMouseDoubleClickEvent(QMouseEvent* event) override
    {
        _pointer.doubleClick(*event);
    }
    void contentsMouseMoveEvent(QMouseEvent* event) override { _pointer.move(*event); }
    void keyPressEvent(QKeyEvent* event) override { _keys.press(event); }
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void reportSelection() override;
    void reportSweep(bool changed)
    {
        if (changed)
            reportSelection();
    }
    void reportSelected(QTeskelListBoxItem* item) override;
    void reportReturnPressed(QTeskelListBoxItem* item) override { emit returnPressed(item); }
    void reportDoubleClicked(QTeskelListBoxItem* item) override { emit doubleClicked(item); }
    void reportPressed(int button, QTeskelListBoxItem* item, const QPoint& position) override;
    void reportClicked(int button, QTeskelListBoxItem* item, const QPoint& position) override;
    void reportHovered(QTeskelListBoxItem* item) override;
    bool reportHighlighted(QTeskelListBoxItem* item);

    static QAccessibleInterface* makeAccessible(const QString& className, QObject* object);
    void deleteItems();

    teskel::ListBoxModel _model;
    teskel::ListBoxSelection _selection;
    teskel::ListBoxGrid _grid;
    teskel::ListBoxChoice _choice;
    teskel::ListBoxKeyController _keys;
    teskel::ListBoxPointerController _pointer;
    teskel::ListBoxPainter _painter;
    QTimer* _visibleTimer;
};
