// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entrystream.h"
#include "lexicon/entries/scratchfile.h"

#include <memory>

namespace teskel
{

/// Entries put aside in a temporary file, in the order in which they came.
class EntryFile
{
public:
    bool append(const LexiconEntry& entry);
    /// Appends all that is left of a stream.
    bool append(EntryStream& entries);

    /// Ends the appending and gives its memory back.
    bool finish() { return _file.finish(); }

    /// All entries from the first on. Nothing is appended any more then; the file must outlive the
    /// stream.
    std::unique_ptr<EntryStream> read();

    uint64_t count() const { return _count; }
    /// A sentence about the temporary file, when something is wrong with it.
    const std::string& error() const { return _file.error(); }

private:
    ScratchFile _file;
    uint64_t _count = 0;
};

} // namespace teskel
