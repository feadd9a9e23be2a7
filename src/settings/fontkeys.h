// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// The keys of a font in any group of the settings file: its size in points, and its family.
inline QString fontSizeKey()
{
    return QStringLiteral("FontSize");
}
inline QString fontNameKey()
{
    return QStringLiteral("FontName");
}

} // namespace teskel
