// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

class QTeskelListBox;
class QTeskelListBoxItem;

namespace teskel
{

class ListBoxWatch;

/// Holds the items of a list box in their order and answers where an item stands.
///
/// Owns nothing by itself: the list box decides when an item is deleted.
class ListBoxModel : public QObject
{
    Q_OBJECT

public:
    /// @param owner what the items name as their list box; may be null in a test
    explicit ListBoxModel(QTeskelListBox* owner)
        : _owner(owner)
    {
    }

    QTeskelListBox* owner() const { return _owner; }
    int count() const { return static_cast<int>(_items.size()); }
    bool isEmpty() const { return _items.empty(); }
    /// Null for an index that does not exist.
    QTeskelListBoxItem* item(int index) const;
    /// -1 for null and for an item of another list.
    int index(const QTeskelListBoxItem* item) const;

    /// Inserts before `index`; a negative one, or one past the end, appends.
    void insert(QTeskelListBoxItem* item, int index);
    /// Takes the item, which is shown to assistive technology no longer, out; false when it is not
    /// here.
    bool take(QTeskelListBoxItem* item);
    void sort(bool ascending);
    /// Where `text` belongs in a sorted list, behind equal ones.
    int sortedIndex(const QString& text) const;
    /// The first item that begins with `text`, whatever the case; null for the empty text.
    QTeskelListBoxItem* findPrefix(const QString& text) const;

    /// Sets the flag; true when it was different.
    static bool mark(QTeskelListBoxItem* item, bool selected);
    QTeskelListBoxItem* firstSelected() const;

    /// Watches over `item` from now on; null watches over the list box alone.
    ListBoxWatch watch(const QTeskelListBoxItem* item = nullptr) const;

private:
    friend class ListBoxWatch;

    void renumber() const;

    QTeskelListBox* _owner;
    std::vector<QTeskelListBoxItem*> _items;
    /// Counts the items taken out so far.
    quint64 _removals = 0;
    /// From here on the items' own numbers are out of date.
    mutable std::size_t _numbered = 0;
};

/// Tells, after slots have run, whether the list box and one of its items are still there.
class ListBoxWatch
{
public:
    /// Never looks into the item.
    bool isAlive() const;
    /// Calls the steps in turn for as long as both are there; true when they still are at the end.
    template<typename... Steps>
    bool run(const Steps&... steps) const
    {
        const auto call = [this](const auto& step) {
            step();
            return isAlive();
        };
        return isAlive() && (call(steps) && ...);
    }

private:
    friend class ListBoxModel;
    ListBoxWatch(const ListBoxModel* model, const QTeskelListBoxItem* item);

    QPointer<const ListBoxModel> _model;
    const QTeskelListBoxItem* _item;
    quint64 _removals;
};

} // namespace teskel
