// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrysorter.h"

#include <algorithm>
#include <utility>

namespace teskel
{

namespace
{

class Held : public EntryStream
{
public:
    explicit Held(const std::vector<LexiconEntry>& entries)
        : _entries(entries)
    {
    }

    bool next(LexiconEntry& entry) override
    {
        if (_next == _entries.size())
            return false;
        entry = _entries[_next++];
        return true;
    }

private:
    const std::vector<LexiconEntry>& _entries;
    size_t _next = 0;
};

/// Merges sorted streams. Each keeps the texts of its first entry until it is asked for the next.
class Merged : public EntryStream
{
public:
    explicit Merged(std::vector<std::unique_ptr<EntryStream>> streams)
        : _streams(std::move(streams))
    {
        for (size_t stream = 0; stream < _streams.size(); ++stream)
            advance(stream);
    }

    bool next(LexiconEntry& entry) override
    {
        if (_given != none)
            advance(std::exchange(_given, none));
        if (_heap.empty())
            return false;
        std::pop_heap(_heap.begin(), _heap.end(), comesAfter);
        entry = _heap.back().entry;
        _given = _heap.back().stream;
        _heap.pop_back();
        return true;
    }

private:
    struct First {
        LexiconEntry entry;
        size_t stream;
    };
    static constexpr size_t none = SIZE_MAX;

    static bool comesAfter(const First& a, const First& b) { return comesBefore(b.entry, a.entry); }

    void advance(size_t stream)
    {
        LexiconEntry entry;
        if (!_streams[stream]->next(entry))
            return;
        _heap.push_back({entry, stream});
        std::push_heap(_heap.begin(), _heap.end(), comesAfter);
    }

    std::vector<std::unique_ptr<EntryStream>> _streams;
    std::vector<First> _heap;
    size_t _given = none; // the stream whose entry the caller holds
};

} // namespace

bool EntrySorter::add(std::string_view headword, std::string_view article, uint32_t order,
                      uint16_t writtenLength)
{
    ++_count;
    _held.push_back(_arena->make(headword, article, order));
    _held.back().writtenLength = writtenLength;
    _heldBytes += sizeof(LexiconEntry) + _held.back().packed().size();
    return _heldBytes < _room || putAside();
}

void EntrySorter::sortHeld()
{
    std::sort(_held.begin(), _held.end(), comesBefore);
}

bool EntrySorter::putAside()
{
    sortHeld();
    Held entries(_held);
    _runs.push_back(std::make_unique<EntryFile>());
    const bool isWritten = _runs.back()->append(entries) && _runs.back()->finish();
    _held.clear();
    _heldBytes = 0;
    _arena = std::make_unique<EntryArena>();
    return isWritten;
}

std::unique_ptr<EntryStream> EntrySorter::sorted()
{
    sortHeld();
    auto held = std::make_unique<Held>(_held);
    if (_runs.empty())
        return held;
    std::vector<std::unique_ptr<EntryStream>> streams;
    for (const auto& run : _runs)
        streams.push_back(run->read());
    streams.push_back(std::move(held));
    return std::make_unique<Merged>(std::move(streams));
}

std::string EntrySorter::error() const
{
    for (const auto& run : _runs) {
        if (!run->error().empty())
            return run->error();
    }
    return {};
}

} // namespace teskel
