// SPDX-License-Identifier: MIT
#include "platform/fontdatabase.h"

#include <QFontDatabase>

QStringList FontDatabase::families()
{
    return QFontDatabase::families();
}
