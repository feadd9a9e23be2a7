// SPDX-License-Identifier: MIT
#include "widgets/buttongroupbox.h"

#include <QAbstractButton>
#include <QButtonGroup>

namespace teskel
{

ButtonGroupBox::ButtonGroupBox(const QString& title, const QString& objectName, QWidget* parent)
    : QGroupBox(title, parent)
    , _buttons(new QButtonGroup(this))
{
    setObjectName(objectName);
    _buttons->setExclusive(true);
}

void ButtonGroupBox::addButton(QAbstractButton* button)
{
    _buttons->addButton(button, static_cast<int>(_buttons->buttons().size()));
}

QAbstractButton* ButtonGroupBox::button(int id) const
{
    return _buttons->button(id);
}

int ButtonGroupBox::id(QAbstractButton* button) const
{
    return _buttons->id(button);
}

void ButtonGroupBox::setButton(int id)
{
    if (QAbstractButton* wanted = button(id))
        wanted->setChecked(true);
}

int ButtonGroupBox::selectedId() const
{
    return _buttons->checkedId();
}

} // namespace teskel
