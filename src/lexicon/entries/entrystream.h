// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/lexiconentry.h"

namespace teskel
{

/// Entries, one after the other.
class EntryStream
{
public:
    virtual ~EntryStream() = default;

    /// Puts the next entry into `entry`, whose texts are valid until the next call. False at the
    /// end, and where nothing more can be read.
    virtual bool next(LexiconEntry& entry) = 0;

protected:
    EntryStream() = default;
    EntryStream(const EntryStream&) = delete;
    EntryStream& operator=(const EntryStream&) = delete;
};

} // namespace teskel
