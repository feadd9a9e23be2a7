// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QStringList>

namespace teskel
{
class ListBoxEmission;
class ListBoxItemAccessible;
struct ListBoxState;
} // namespace teskel

/// A list of items to look at and choose from, in one column or several.
///
/// The list box owns its items. Indexes count from 0; an index that does not exist, and a null
/// item, are ignored, or answered with -1, null or an empty text. Slots may remove items or delete
/// the list box while it emits.
class QTeskelListBox : public QTeskelScrollView
{
    Q_OBJECT

public:
    /// `Single`: at most one item, the current one; `Multi`: each item on its own; `Extended`:
    /// ranges with Shift, single ones with Control; `NoSelection`: none.
    enum SelectionMode { Single, Multi, Extended, NoSelection };
    Q_ENUM(SelectionMode)
    /// How many columns or rows there are: a fixed number, as many as fit, or as many as are
    /// needed.
    enum LayoutMode { FixedNumber, FitToWidth, FitToHeight = FitToWidth, Variable };
    Q_ENUM(LayoutMode)

    explicit QTeskelListBox(QWidget* parent = nullptr, const char* name = nullptr,
                            Qt::WindowFlags flags = {});
    ~QTeskelListBox() override;
    Q_DISABLE_COPY_MOVE(QTeskelListBox)

    // Items
    int count() const;
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

    QTeskelListBoxItem* item(int index) const;
    QTeskelListBoxItem* firstItem() const { return item(0); }
    int index(const QTeskelListBoxItem* item) const;
    QString text(int index) const;
    const QPixmap* pixmap(int index) const;
    /// The first item that begins with `text`, whatever the case.
    QTeskelListBoxItem* findItem(const QString& text) const;

    // Current item and selection
    int currentItem() const;
    QString currentText() const { return text(currentItem()); }
    void setCurrentItem(int index);
    virtual void setCurrentItem(QTeskelListBoxItem* item);
    SelectionMode selectionMode() const;
    void setSelectionMode(SelectionMode mode);
    void setMultiSelection(bool multi) { setSelectionMode(multi ? Multi : Single); }
    bool isMultiSelection() const;
    void setSelected(int index, bool select);
    virtual void setSelected(QTeskelListBoxItem* item, bool select);
    bool isSelected(int index) const;
    bool isSelected(const QTeskelListBoxItem* item) const;
    /// The first selected item.
    QTeskelListBoxItem* selectedItem() const;

    // Geometry
    LayoutMode columnMode() const;
    LayoutMode rowMode() const;
    void setColumnMode(LayoutMode mode);
    void setColumnMode(int columns);
    void setRowMode(LayoutMode mode);
    void setRowMode(int rows);
    int numColumns() const;
    int numRows() const;
    bool variableWidth() const;
    void setVariableWidth(bool variable);
    bool variableHeight() const;
    void setVariableHeight(bool variable);
    /// Items of which at least a part is in view.
    int numItemsVisible() const;
    bool itemVisible(int index) const;
    bool itemVisible(const QTeskelListBoxItem* item) const;
    /// The index of the first item in view, -1 in an empty list.
    int topItem() const;
    virtual void setTopItem(int index);
    virtual void setBottomItem(int index);
    int itemHeight(int index = 0) const;
    int maxItemWidth() const;
    /// The item at a position in the viewport.
    QTeskelListBoxItem* itemAt(QPoint position) const;
    /// The item's cell in the viewport, invalid for an item of another list.
    QRect itemRect(const QTeskelListBoxItem* item) const;
    /// The item's upper edge in the contents.
    int itemYPos(const QTeskelListBoxItem* item) const;
    /// Asks for one repaint, and for a layout first when `doLayout`, when control returns to the
    /// event loop; any number of calls cost one.
    void triggerUpdate(bool doLayout);

    QSize sizeHint() const override;
    void setHScrollBarMode(ScrollBarMode mode) override;

public slots:
    /// Scrolls just far enough to show the current item.
    void ensureCurrentVisible();
    virtual void clearSelection();
    virtual void selectAll(bool select);
    virtual void invertSelection();
    /// Ends typing ahead.
    void clearInputString();
    /// Lays out if needed, and repaints.
    void refreshSlot();
    /// Scrolls on while an item is dragged outside the view.
    void doAutoScroll();
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
    virtual void paintCell(QPainter* painter, int row, int column);

    void drawContents(QPainter* painter, const QRect& clip) override;
    void contentsMousePressEvent(QMouseEvent* event) override;
    void contentsMouseReleaseEvent(QMouseEvent* event) override;
    void contentsMouseDoubleClickEvent(QMouseEvent* event) override;
    void contentsMouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    friend class QTeskelListBoxItem;
    friend class teskel::ListBoxEmission;
    friend class teskel::ListBoxItemAccessible;

    void itemTextChanged(const QTeskelListBoxItem* item);
    void insertAt(QTeskelListBoxItem* item, int index);
    void deleteItems();
    void layOutGrid() const;
    void layOutIn(QSize room) const;
    bool layOutIfNeeded();
    void updateItem(const QTeskelListBoxItem* item);
    void emitHighlighted(teskel::ListBoxEmission& emission, QTeskelListBoxItem* item);
    void emitSelected(teskel::ListBoxEmission& emission, QTeskelListBoxItem* item);
    void afterSelectionSweep(bool changed);

    bool moveByKey(const QKeyEvent& event);
    void actOnCurrent(QKeyEvent* event);
    void typeAhead(const QString& text);
    void selectByPress(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers);
    void selectByMove(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers);
    void dragTo(QPoint position);
    void endDrag();
    void hoverAt(QPoint position);

    std::unique_ptr<teskel::ListBoxState> _state;
};
