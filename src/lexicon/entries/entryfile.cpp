// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryfile.h"

#include <array>
#include <cstring>
#include <vector>

namespace teskel
{

namespace
{

constexpr size_t bufferBytes = size_t{1} << 16;

/// What stands in front of an entry's texts.
struct Head {
    uint32_t articleLength;
    uint32_t order;
    uint16_t headwordLength;
    uint16_t writtenLength;
};

class Reader : public EntryStream
{
public:
    explicit Reader(ScratchFile& file)
        : _file(file)
        , _buffer(bufferBytes)
    {
    }

    bool next(LexiconEntry& entry) override
    {
        Head head{};
        const char* const bytes = take(sizeof head);
        if (bytes == nullptr)
            return false;
        std::memcpy(&head, bytes, sizeof head);
        entry.articleLength = head.articleLength;
        entry.order = head.order;
        entry.headwordLength = head.headwordLength;
        entry.writtenLength = head.writtenLength;
        entry.text = take(entry.headwordLength + size_t{entry.articleLength} + 2);
        return entry.text != nullptr;
    }

private:
    /// The next bytes of the file, all of them, or null.
    const char* take(size_t size)
    {
        if (_end - _begin < size)
            fill(size);
        if (_end - _begin < size)
            return nullptr;
        const char* const bytes = _buffer.data() + _begin;
        _begin += size;
        return bytes;
    }

    void fill(size_t size)
    {
        const size_t left = _end - _begin;
        std::memmove(_buffer.data(), _buffer.data() + _begin, left);
        if (_buffer.size() < size)
            _buffer.resize(size);
        const size_t got = _file.read(_offset, _buffer.data() + left, _buffer.size() - left);
        _offset += got;
        _begin = 0;
        _end = left + got;
    }

    ScratchFile& _file;
    std::vector<char> _buffer;
    size_t _begin = 0; // of what was not taken yet, in the buffer
    size_t _end = 0;
    uint64_t _offset = 0; // of what follows the buffer, in the file
};

} // namespace

bool EntryFile::append(const LexiconEntry& entry)
{
    const Head head{entry.articleLength, entry.order, entry.headwordLength, entry.writtenLength};
    std::array<char, sizeof head> bytes{};
    std::memcpy(bytes.data(), &head, sizeof head);
    ++_count;
    _file.append({bytes.data(), bytes.size()});
    return _file.append(entry.packed());
}

bool EntryFile::append(EntryStream& entries)
{
    LexiconEntry entry;
    while (entries.next(entry)) {
        if (!append(entry))
            return false;
    }
    return true;
}

std::unique_ptr<EntryStream> EntryFile::read()
{
    _file.flush();
    return std::make_unique<Reader>(_file);
}

} // namespace teskel
