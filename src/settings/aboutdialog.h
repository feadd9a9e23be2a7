// SPDX-License-Identifier: MIT
#pragma once

#include "settings/aboutbasedialog.h"

/// Says what the product is, which version, and whom to ask.
class AboutDialog : public AboutBaseDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent = nullptr, const char* name = nullptr, bool modal = false,
                         Qt::WindowFlags flags = {});
};
