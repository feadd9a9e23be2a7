// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

namespace teskel
{

/// A tool button that opens its menu at the press and shows that menu to screen readers too.
///
/// Qt's own button hides a menu of this kind from the accessibility tree. The button takes no
/// keyboard focus.
class MenuButton : public QToolButton
{
    Q_OBJECT

public:
    explicit MenuButton(QWidget* parent = nullptr);
};

} // namespace teskel
