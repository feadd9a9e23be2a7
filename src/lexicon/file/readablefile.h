// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QFile;

namespace teskel
{

/// Opens the file for reading and reads a byte, which tells a directory from a file.
bool openReadable(QFile& file);

/// The sentence for a file that cannot be read; `path` is what the person called it.
std::string whyUnreadable(const QFile& file, const std::string& path);

} // namespace teskel
