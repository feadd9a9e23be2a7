// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

class QString;
class QTeskelListBox;
class QTeskelListBoxItem;

namespace teskel
{

/// Holds the items of a list box in their order and answers where an item stands.
///
/// Owns nothing by itself: the list box decides when an item is deleted.
class ListBoxModel
{
public:
    /// @param owner what the items name as their list box; may be null in a test
    explicit ListBoxModel(QTeskelListBox* owner)
        : _owner(owner)
    {
    }

    int count() const { return static_cast<int>(_items.size()); }
    bool isEmpty() const { return _items.empty(); }
    /// Null for an index that does not exist.
    QTeskelListBoxItem* item(int index) const;
    /// -1 for null and for an item of another list.
    int index(const QTeskelListBoxItem* item) const;

    /// Inserts before `index`; a negative one, or one past the end, appends.
    void insert(QTeskelListBoxItem* item, int index);
    /// Takes the item out; false when it is not here.
    bool take(QTeskelListBoxItem* item);
    void sort(bool ascending);
    /// Where `text` belongs in a sorted list, behind equal ones.
    int sortedIndex(const QString& text) const;
    /// The first item that begins with `text`, whatever the case; null for the empty text.
    QTeskelListBoxItem* findPrefix(const QString& text) const;

    /// Sets the flag; true when it was different.
    static bool mark(QTeskelListBoxItem* item, bool selected);
    QTeskelListBoxItem* firstSelected() const;

    /// Counts the items taken out so far.
    quint64 removals() const { return _removals; }
    /// Whether an item that was here when `removals` were counted still is. Never looks into it.
    bool stillHolds(const QTeskelListBoxItem* item, quint64 removals) const;

private:
    void renumber() const;

    QTeskelListBox* _owner;
    std::vector<QTeskelListBoxItem*> _items;
    quint64 _removals = 0;
    /// From here on the items' own numbers are out of date.
    mutable std::size_t _numbered = 0;
};

} // namespace teskel
