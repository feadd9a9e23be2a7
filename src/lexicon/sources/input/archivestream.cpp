// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/archivestream.h"

#include <algorithm>
#include <cerrno>

#include <archive.h>
#include <archive_entry.h>

using namespace std::string_view_literals;

namespace teskel
{

bool ArchiveStream::isBegunBy(std::string_view head)
{
    return head.starts_with("\xFD"
                            "7zXZ\0"sv) ||
           head.starts_with("\x28\xB5\x2F\xFD");
}

ArchiveStream::ArchiveStream(ByteStream& packed)
    : _packed(packed)
{
    _reader = archive_read_new();
    archive_entry* entry = nullptr;
    _isReady = _reader && archive_read_support_filter_xz(_reader) == ARCHIVE_OK &&
               archive_read_support_filter_zstd(_reader) == ARCHIVE_OK &&
               archive_read_support_format_raw(_reader) == ARCHIVE_OK &&
               archive_read_support_format_empty(_reader) == ARCHIVE_OK &&
               archive_read_open(_reader, this, nullptr, handOver, nullptr) == ARCHIVE_OK;
    const int code = _isReady ? archive_read_next_header(_reader, &entry) : ARCHIVE_FATAL;
    _isEmpty = code == ARCHIVE_EOF && archive_errno(_reader) == 0;
    _isReady = code == ARCHIVE_OK || _isEmpty;
}

ArchiveStream::~ArchiveStream()
{
    archive_read_free(_reader);
}

long ArchiveStream::handOver(archive* reader, void* self, const void** bytes)
{
    auto& stream = *static_cast<ArchiveStream*>(self);
    const long got = stream._packed.read(stream._input.data(), stepBytes);
    if (got < 0)
        archive_set_error(reader, EIO, "cannot be read");
    *bytes = stream._input.data();
    return got;
}

long ArchiveStream::read(char* out, std::size_t size)
{
    if (!_isReady)
        return -1;
    if (_isEmpty) // has no entry that could be read
        return 0;
    const auto got = archive_read_data(_reader, out, size);
    return got < 0 ? -1 : static_cast<long>(got);
}

} // namespace teskel
