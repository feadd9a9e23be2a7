// SPDX-License-Identifier: MIT
#include "files/qteskelselectormenu.h"

#include <QAction>

QTeskelSelectorMenu::QTeskelSelectorMenu(QWidget* parent, const char* name)
    : QMenu(parent)
{
    setObjectName(QString::fromUtf8(name));
    int id = 0;
    for (const QString& text : {tr("All files"), tr("Removable media files")}) {
        QAction* entry = addAction(text);
        entry->setData(id++);
        entry->setCheckable(true);
    }
    setItemChecked(0, true);
    connect(this, &QMenu::triggered, this,
            [this](const QAction* entry) { menuActivated(entry->data().toInt()); });
}

MediaFilter QTeskelSelectorMenu::getMediaFilter() const
{
    return _mediaFilter;
}

void QTeskelSelectorMenu::setMediaFilter(MediaFilter filter)
{
    _mediaFilter = filter;
    emit filterChanged(_mediaFilter);
}

void QTeskelSelectorMenu::menuActivated(int id)
{
    setItemChecked(id, true);
    setItemChecked(id == 0 ? 1 : 0, false);
    setMediaFilter(id == 0 ? MediaFilter::AllFiles : MediaFilter::RemovableMedia);
}

void QTeskelSelectorMenu::setItemChecked(int id, bool checked)
{
    if (QAction* entry = actions().value(id))
        entry->setChecked(checked);
}
