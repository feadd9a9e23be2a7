// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistboxitem.h"

using teskel::ListBoxItemHost;

QTeskelListBoxItem::QTeskelListBoxItem(QTeskelListBox* listBox)
{
    if (listBox != nullptr)
        ListBoxItemHost::append(listBox, this);
}

QTeskelListBoxItem::QTeskelListBoxItem(QTeskelListBox* listBox, QTeskelListBoxItem* after)
{
    if (listBox != nullptr)
        ListBoxItemHost::insertAfter(listBox, this, after);
}

QTeskelListBoxItem::~QTeskelListBoxItem()
{
    if (_listBox != nullptr)
        ListBoxItemHost::take(_listBox, this);
    releaseAccessible();
}

void QTeskelListBoxItem::setText(const QString& text)
{
    _text = text;
    if (_listBox != nullptr)
        ListBoxItemHost::textChanged(_listBox, this);
}

bool QTeskelListBoxItem::current() const
{
    return _listBox != nullptr && ListBoxItemHost::isCurrent(_listBox, this);
}

QTeskelListBoxItem* QTeskelListBoxItem::next() const
{
    return _listBox == nullptr ? nullptr : ListBoxItemHost::neighbour(_listBox, this, 1);
}

QTeskelListBoxItem* QTeskelListBoxItem::prev() const
{
    return _listBox == nullptr ? nullptr : ListBoxItemHost::neighbour(_listBox, this, -1);
}

void QTeskelListBoxItem::releaseAccessible()
{
    if (_accessibleId != 0)
        QAccessible::deleteAccessibleInterface(_accessibleId);
    _accessibleId = 0;
}
