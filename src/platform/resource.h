// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

/// The program's pictures, by name without directory and extension.
class Resource
{
public:
    /// The picture `name`: the compiled-in one, else a file of that name in `$QPEDIR/pics` (PNG,
    /// then XPM, then every other format that can be read). Compiled-in ones measure 24 units and
    /// are drawn for twice the density where a screen has it. Null when there is none.
    static QPixmap loadPixmap(const QString& name);

    /// The picture `name` as an icon that holds every size drawn for it, so that it is sharp in
    /// menus, tool bars and on screens of twice the density. Null when there is none. A compiled-in
    /// picture is read when it is first painted.
    static QIcon loadIcon(const QString& name);
};
