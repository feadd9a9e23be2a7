// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxmodel.h"

#include "widgets/listbox/qteskellistboxitem.h"

#include <algorithm>

namespace teskel
{

QTeskelListBoxItem* ListBoxModel::item(int index) const
{
    return index < 0 || index >= count() ? nullptr : _items[static_cast<std::size_t>(index)];
}

int ListBoxModel::index(const QTeskelListBoxItem* item) const
{
    if (item == nullptr || item->_index < 0)
        return -1;
    renumber();
    const auto place = static_cast<std::size_t>(item->_index);
    return place < _items.size() && _items[place] == item ? static_cast<int>(place) : -1;
}

void ListBoxModel::renumber() const
{
    for (; _numbered < _items.size(); ++_numbered)
        _items[_numbered]->_index = static_cast<int>(_numbered);
}

void ListBoxModel::insert(QTeskelListBoxItem* item, int index)
{
    const auto place =
        index < 0 || index > count() ? _items.size() : static_cast<std::size_t>(index);
    _items.insert(_items.begin() + static_cast<std::ptrdiff_t>(place), item);
    item->_listBox = _owner;
    item->_index = static_cast<int>(place);
    _numbered = std::min(_numbered, place);
}

bool ListBoxModel::take(QTeskelListBoxItem* item)
{
    const int place = index(item);
    if (place < 0)
        return false;
    item->releaseAccessible();
    _items.erase(_items.begin() + place);
    _numbered = std::min(_numbered, static_cast<std::size_t>(place));
    item->_listBox = nullptr;
    item->_index = -1;
    ++_removals;
    return true;
}

void ListBoxModel::sort(bool ascending)
{
    std::stable_sort(_items.begin(), _items.end(),
                     [ascending](const QTeskelListBoxItem* a, const QTeskelListBoxItem* b) {
                         return ascending ? a->text() < b->text() : b->text() < a->text();
                     });
    _numbered = 0;
}

int ListBoxModel::sortedIndex(const QString& text) const
{
    const auto place = std::upper_bound(_items.begin(), _items.end(), text,
                                        [](const QString& wanted, const QTeskelListBoxItem* item) {
                                            return wanted < item->text();
                                        });
    return static_cast<int>(place - _items.begin());
}

QTeskelListBoxItem* ListBoxModel::findPrefix(const QString& text) const
{
    if (text.isEmpty())
        return nullptr;
    const auto found =
        std::find_if(_items.begin(), _items.end(), [&text](const QTeskelListBoxItem* item) {
            return item->text().startsWith(text, Qt::CaseInsensitive);
        });
    return found == _items.end() ? nullptr : *found;
}

bool ListBoxModel::mark(QTeskelListBoxItem* item, bool selected)
{
    if (item == nullptr || item->_selected == selected)
        return false;
    item->_selected = selected;
    return true;
}

QTeskelListBoxItem* ListBoxModel::firstSelected() const
{
    const auto found =
        std::find_if(_items.begin(), _items.end(),
                     [](const QTeskelListBoxItem* item) { return item->selected(); });
    return found == _items.end() ? nullptr : *found;
}

ListBoxWatch ListBoxModel::watch(const QTeskelListBoxItem* item) const
{
    return {this, item};
}

ListBoxWatch::ListBoxWatch(const ListBoxModel* model, const QTeskelListBoxItem* item)
    : _model(model)
    , _item(item)
    , _removals(model->_removals)
{
}

bool ListBoxWatch::isAlive() const
{
    if (_model.isNull())
        return false;
    const auto& items = _model->_items;
    return _item == nullptr || _removals == _model->_removals ||
           std::find(items.begin(), items.end(), _item) != items.end();
}

} // namespace teskel
