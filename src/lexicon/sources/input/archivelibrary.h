// SPDX-License-Identifier: MIT
#pragma once

#include <archive.h>

namespace teskel
{

/// libarchive, loaded when it is first needed.
///
/// It brings ten libraries with it, which would cost every start of the program more than a look-up
/// does, for sources that are packed in few cases.
struct ArchiveLibrary {
    /// The library; null, each time, when it is not installed.
    static const ArchiveLibrary* get();

    // Its functions by their own names, without "archive_".
    decltype(&archive_errno) errorNumber = nullptr;
    decltype(&archive_read_data) readData = nullptr;
    decltype(&archive_read_free) readFree = nullptr;
    decltype(&archive_read_new) readNew = nullptr;
    decltype(&archive_read_next_header) readNextHeader = nullptr;
    decltype(&archive_read_open) readOpen = nullptr;
    decltype(&archive_read_support_filter_xz) readSupportFilterXz = nullptr;
    decltype(&archive_read_support_filter_zstd) readSupportFilterZstd = nullptr;
    decltype(&archive_read_support_format_empty) readSupportFormatEmpty = nullptr;
    decltype(&archive_read_support_format_raw) readSupportFormatRaw = nullptr;
    decltype(&archive_set_error) setError = nullptr;
};

} // namespace teskel
