// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace teskel
{

/// The file that the command line asks to open, if it asks for one.
///
/// Exactly two arguments after the program's name count, "-f" and a path; every other command line
/// is ignored.
/// @param arguments the program's name first, Qt's own options already taken out
inline std::optional<QString> fileFromCommandLine(const QStringList& arguments)
{
    if (arguments.size() == 3 && arguments.at(1) == u"-f")
        return arguments.at(2);
    return std::nullopt;
}

} // namespace teskel
