// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class QFontMetrics;
class QPainter;
class QPixmap;
class QTeskelListBox;
class QTeskelListBoxItem;

namespace teskel
{
class ListBoxAccessible;
class ListBoxModel;

/// A list box as its items see it, who know it by name alone; defined beside QTeskelListBox.
struct ListBoxItemHost {
    using List = QTeskelListBox;
    using Item = QTeskelListBoxItem;

    static void append(List* list, Item* item);
    static void insertAfter(List* list, Item* item, const Item* after);
    static void take(List* list, Item* item);
    static void textChanged(List* list, const Item* item);
    static bool isCurrent(const List* list, const Item* item);
    /// The item so many places behind `item`, null beyond the ends.
    static Item* neighbour(const List* list, const Item* item, int places);
    static QFontMetrics fontMetrics(const List* list);
};
} // namespace teskel

/// One item of a QTeskelListBox: a text, flags, and how it is painted.
///
/// An item in a list box belongs to it and is deleted with it; deleting the item takes it out.
class QTeskelListBoxItem
{
public:
    /// @param listBox the list box to whose end the item is added; null leaves it free
    explicit QTeskelListBoxItem(QTeskelListBox* listBox = nullptr);
    /// Adds the item behind `after`; at the beginning when `after` is null.
    QTeskelListBoxItem(QTeskelListBox* listBox, QTeskelListBoxItem* after);
    virtual ~QTeskelListBoxItem();
    QTeskelListBoxItem(const QTeskelListBoxItem&) = delete;
    QTeskelListBoxItem& operator=(const QTeskelListBoxItem&) = delete;

    virtual QString text() const { return _text; }
    /// The item's picture, null when it has none.
    virtual const QPixmap* pixmap() const { return nullptr; }
    /// Replaces the text; the list box lays out and repaints once when control returns to it.
    virtual void setText(const QString& text);

    /// Paints the item with its upper left corner at (0, 0), in the painter's pen and font.
    virtual void paint(QPainter* painter) = 0;
    /// Size in pixels when shown in `listBox`.
    virtual int width(const QTeskelListBox* listBox) const = 0;
    virtual int height(const QTeskelListBox* listBox) const = 0;

    bool isSelectable() const { return _selectable; }
    /// An item that is made unselectable stays selected if it is.
    void setSelectable(bool selectable) { _selectable = selectable; }
    bool selected() const { return _selected; }
    bool isSelected() const { return _selected; }
    bool current() const;
    bool isCurrent() const { return current(); }
    /// With custom highlighting the item itself paints how it looks when selected. Off at first.
    bool customHighlighting() const { return _customHighlighting; }
    void setCustomHighlighting(bool enable) { _customHighlighting = enable; }

    QTeskelListBox* listBox() const { return _listBox; }
    /// The neighbours in the list box, null at its ends and for a free item.
    QTeskelListBoxItem* next() const;
    QTeskelListBoxItem* prev() const;

private:
    void releaseAccessible();

    friend class teskel::ListBoxModel;
    friend class teskel::ListBoxAccessible;

    QString _text;
    QTeskelListBox* _listBox = nullptr;
    int _index = -1;
    QAccessible::Id _accessibleId = 0;
    bool _selected = false;
    bool _selectable = true;
    bool _customHighlighting = false;
};
