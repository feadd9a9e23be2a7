// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistboxitem.h"

#include "widgets/listbox/qteskellistbox.h"

QTeskelListBoxItem::QTeskelListBoxItem(QTeskelListBox* listBox)
{
    if (listBox != nullptr)
        listBox->insertItem(this);
}

QTeskelListBoxItem::QTeskelListBoxItem(QTeskelListBox* listBox, QTeskelListBoxItem* after)
{
    if (listBox != nullptr)
        listBox->insertItem(this, after);
}

QTeskelListBoxItem::~QTeskelListBoxItem()
{
    if (_listBox != nullptr)
        _listBox->takeItem(this);
    releaseAccessible();
}

void QTeskelListBoxItem::setText(const QString& text)
{
    _text = text;
    if (_listBox != nullptr)
        _listBox->itemTextChanged(this);
}

bool QTeskelListBoxItem::current() const
{
    return _listBox != nullptr && _listBox->item(_listBox->currentItem()) == this;
}

QTeskelListBoxItem* QTeskelListBoxItem::next() const
{
    return _listBox == nullptr ? nullptr : _listBox->item(_listBox->index(this) + 1);
}

QTeskelListBoxItem* QTeskelListBoxItem::prev() const
{
    return _listBox == nullptr ? nullptr : _listBox->item(_listBox->index(this) - 1);
}

void QTeskelListBoxItem::releaseAccessible()
{
    if (_accessibleId != 0)
        QAccessible::deleteAccessibleInterface(_accessibleId);
    _accessibleId = 0;
}
