// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// A text as a headword holds it: canonically composed, and in Latin letters what Latin-1 lacks.
///
/// No character of the result is above U+00FF, whatever the locale. Latin-1 text comes back as it
/// is, shared; in other texts the characters of Latin-1 stay as well. A word, between white space,
/// of which no letter would be left is given by its code points (hexadecimalLetters()).
QString inLatin1(const QString& text);

} // namespace teskel
