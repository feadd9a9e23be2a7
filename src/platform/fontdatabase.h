// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The fonts that the system offers.
class FontDatabase
{
public:
    /// Names of all font families, in the order in which the system lists them.
    static QStringList families();
};
