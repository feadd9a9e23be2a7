// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTreeWidgetItem>

/// A row of the selector: a name to show and the path that it stands for.
class DictionaryListItem : public QTreeWidgetItem
{
public:
    /// Adds the row to `parent`, which owns it and puts it where its order wants it.
    DictionaryListItem(QTreeWidget* parent, const QString& text, const QString& url);

    /// Absolute path of the file.
    QString url() const;

private:
    QString _url;
};
