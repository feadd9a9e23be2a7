// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/archivestream.h"

#include "lexicon/sources/input/archivelibrary.h"

#include <cerrno>

using namespace std::string_view_literals;

namespace teskel
{

bool ArchiveStream::isBegunBy(std::string_view head)
{
    return head.starts_with("\xFD"
                            "7zXZ\0"sv) ||
           head.starts_with("\x28\xB5\x2F\xFD");
}

ArchiveStream::ArchiveStream(ByteStream& packed, const ArchiveLibrary& library)
    : _library(library)
    , _packed(packed)
{
    _reader = _library.readNew();
    archive_entry* entry = nullptr;
    _isReady = _reader && _library.readSupportFilterXz(_reader) == ARCHIVE_OK &&
               _library.readSupportFilterZstd(_reader) == ARCHIVE_OK &&
               _library.readSupportFormatRaw(_reader) == ARCHIVE_OK &&
               _library.readSupportFormatEmpty(_reader) == ARCHIVE_OK &&
               _library.readOpen(_reader, this, nullptr, handOver, nullptr) == ARCHIVE_OK;
    const int code = _isReady ? _library.readNextHeader(_reader, &entry) : ARCHIVE_FATAL;
    _isEmpty = code == ARCHIVE_EOF && _library.errorNumber(_reader) == 0;
    _isReady = code == ARCHIVE_OK || _isEmpty;
}

ArchiveStream::~ArchiveStream()
{
    _library.readFree(_reader);
}

long ArchiveStream::handOver(archive* reader, void* self, const void** bytes)
{
    auto& stream = *static_cast<ArchiveStream*>(self);
    const long got = stream._packed.read(stream._input.data(), stepBytes);
    if (got < 0)
        stream._library.setError(reader, EIO, "cannot be read");
    *bytes = stream._input.data();
    return got;
}

long ArchiveStream::read(char* out, std::size_t size)
{
    if (!_isReady)
        return -1;
    if (_isEmpty) // has no entry that could be read
        return 0;
    const auto got = _library.readData(_reader, out, size);
    return got < 0 ? -1 : static_cast<long>(got);
}

} // namespace teskel
