// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace teskel
{

/// Warns about a broken internal condition and lets the program go on.
///
/// Prints `ASSERT: "<text>" in <unit> (<line>)` through qWarning. Corrupt input must never end the
/// program, so a failed condition is reported and the caller continues with its own safe handling.
///
/// @param holds whether the condition held
/// @param text  the condition as it is to be printed
/// @param unit  bare source unit with its extension, e.g. "qtdictionary.cpp"
/// @param line  line number, or a fixed number that identifies the place
/// @return      `holds`
inline bool verify(bool holds, const char* text, const char* unit, int line)
{
    if (!holds) [[unlikely]]
        qWarning("ASSERT: \"%s\" in %s (%d)", text, unit, line);
    return holds;
}

} // namespace teskel

/// Checks `condition` and reports it as `text`; `unit` is the unit that the message names.
#define TESKEL_ASSERT(condition, text, unit) ::teskel::verify((condition), text, unit, __LINE__)
