// SPDX-License-Identifier: MIT
#pragma once

#include <QGroupBox>

class QAbstractButton;
class QButtonGroup;

namespace teskel
{

/// A titled box whose buttons exclude one another and are numbered from 0 in the order added.
class ButtonGroupBox : public QGroupBox
{
    Q_OBJECT

public:
    ButtonGroupBox(const QString& title, const QString& objectName, QWidget* parent);

    /// Numbers `button`, which stays owned by its parent; placing it is the caller's business.
    void addButton(QAbstractButton* button);
    /// The button numbered `id`, or null.
    QAbstractButton* button(int id) const;
    /// The number of `button`, or -1 when it is not of this group.
    int id(QAbstractButton* button) const;
    /// Selects the button numbered `id`; a number without a button changes nothing.
    void setButton(int id);
    /// The number of the selected button, or -1 when none is selected.
    int selectedId() const;

private:
    QButtonGroup* _buttons;
};

} // namespace teskel
