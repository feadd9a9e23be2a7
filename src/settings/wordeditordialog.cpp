// SPDX-License-Identifier: MIT
#include "settings/wordeditordialog.h"

#include "platform/resource.h"

#include <QIcon>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

WordEditorDialog::WordEditorDialog(QWidget* parent, const char* name, bool modal,
                                   Qt::WindowFlags flags)
    : WordEditorBaseDialog(parent, name, modal, flags)
{
    _btnClear->setIcon(Resource::loadIcon(u"teskel-clear"_s));
    connect(_btnClear, &QToolButton::clicked, this, &WordEditorDialog::clearWord);
    _btnClear->setToolTip(tr("Clear current word"));
    _btnClear->setAccessibleName(_btnClear->toolTip());
}

void WordEditorDialog::clearWord()
{
    _editWord->clear();
}
