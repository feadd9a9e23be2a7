// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QFile;

namespace teskel
{

/// Opens a lexicon for reading, at its beginning; `path` is in the bytes of the file system and
/// becomes the name of `file`. False, with the reason in `error`, for what cannot be read and for
/// what is no regular file, such as a pipe, or
/// made up by the kernel, as all of /proc is, which it does not wait for.
bool openLexiconFile(QFile& file, const std::string& path, std::string& error);

} // namespace teskel
