// SPDX-License-Identifier: MIT
#include "widgets/choicelist.h"

namespace teskel
{

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* /*event*/) const
{
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace teskel
