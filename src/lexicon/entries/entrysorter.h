// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryarena.h"
#include "lexicon/entries/entryfile.h"

#include <memory>
#include <string>
#include <vector>

namespace teskel
{

/// Sorts any number of entries within a limited memory.
///
/// It is an external merge sort: what goes beyond the limit is sorted into temporary files, which
/// are merged as they are read (Knuth, The Art of Computer Programming, volume 3, 5.4).
class EntrySorter
{
public:
    /// Bytes of entries that are held in memory.
    static constexpr size_t usualRoom = size_t{32} << 20;

    explicit EntrySorter(size_t room = usualRoom)
        : _room(room)
    {
    }

    /// Takes an entry; `writtenLength` is that of LexiconEntry. False when a temporary file could
    /// not be written.
    bool add(std::string_view headword, std::string_view article, uint32_t order,
             uint16_t writtenLength = 0);

    /// All entries in the order of a lexicon, once. The sorter must outlive the stream.
    std::unique_ptr<EntryStream> sorted();

    uint64_t count() const { return _count; }
    /// How many temporary files there are.
    size_t runs() const { return _runs.size(); }
    /// A sentence about the temporary files, when something is wrong with them.
    std::string error() const;

private:
    void sortHeld();
    bool putAside();

    size_t _room;
    size_t _heldBytes = 0;
    uint64_t _count = 0;
    std::unique_ptr<EntryArena> _arena = std::make_unique<EntryArena>();
    std::vector<LexiconEntry> _held;
    std::vector<std::unique_ptr<EntryFile>> _runs;
};

} // namespace teskel
