// SPDX-License-Identifier: MIT
#pragma once

#include "files/mediafilter.h"

#include <QMenu>

/// The selector's menu of media filters.
class QTeskelSelectorMenu : public QMenu
{
    Q_OBJECT

public:
    explicit QTeskelSelectorMenu(QWidget* parent, const char* name = nullptr);

    MediaFilter getMediaFilter() const;
    /// Stores `filter` and reports it; the check marks stay with what the user chose last.
    void setMediaFilter(MediaFilter filter);

signals:
    void filterChanged(const MediaFilter filter);

public slots:
    /// Moves the check mark to the entry numbered `id` and reports its filter; every number but 0
    /// stands for removable media.
    void menuActivated(int id);

private:
    void setItemChecked(int id, bool checked);

    MediaFilter _mediaFilter = MediaFilter::AllFiles;
};
