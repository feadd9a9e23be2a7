// SPDX-License-Identifier: MIT
#include "settings/aboutdialog.h"

AboutDialog::AboutDialog(QWidget* parent, const char* name, bool modal, Qt::WindowFlags flags)
    : AboutBaseDialog(parent, name, modal, flags)
{
}
