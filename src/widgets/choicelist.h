// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

namespace teskel
{

/// A list of which one row is chosen: another click or key can move the choice, none can drop it.
///
/// Qt's own list drops it at a click below the last row and at Ctrl+click on the chosen one. A
/// program can still choose nothing.
class ChoiceList : public QListWidget
{
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};

} // namespace teskel
