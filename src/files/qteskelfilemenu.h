// SPDX-License-Identifier: MIT
#pragma once

#include "files/qteskelfileinfo.h"

#include <QMap>
#include <QMenu>

/// The menu of installed dictionaries, and the finder of a dictionary's reverse.
///
/// Discovery runs once, at construction; cards that come or go later do not change the menu. Each
/// entry shows the display name and an icon for internal storage or card.
class QTeskelFileMenu : public QMenu
{
    Q_OBJECT

public:
    explicit QTeskelFileMenu(QWidget* parent, const char* name = nullptr);

    /// The display name of the dictionary of the opposite direction; empty when `name` has none.
    QString findReverseDictionary(const QString& name) const;
    /// The absolute path of the first file in the menu whose display name is exactly `name`, or
    /// empty.
    QString findFileName(const QString& name) const;

signals:
    /// The user chose this file.
    void fileSelected(const QTeskelFileInfo& info);

public slots:
    /// Reports the file of the entry numbered `id`, counted from 0; unknown numbers do nothing.
    void menuActivated(int id);

private:
    QMap<int, QTeskelFileInfo> _fileMap;
};
