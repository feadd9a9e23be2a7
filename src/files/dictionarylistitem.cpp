// SPDX-License-Identifier: MIT
#include "files/dictionarylistitem.h"

#include <QStringList>

DictionaryListItem::DictionaryListItem(QTreeWidget* parent, const QString& text, const QString& url)
    : QTreeWidgetItem(parent, QStringList(text), UserType)
    , _url(url)
{
}

QString DictionaryListItem::url() const
{
    return _url;
}
