// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/latin1converter.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace teskel
{

/// What a build has to tell about itself once it is done.
struct BuildReport {
    uint64_t entriesRead = 0;
    uint64_t headwords = 0;
    uint64_t romanizedHeadwords = 0; ///< entries whose headword Latin-1 lacks
    uint64_t mergedHeadwords = 0;    ///< headwords that gather several articles
    uint64_t repeatedArticles = 0;   ///< same headword and same article again, kept once
    uint64_t records = 0;
    uint64_t unpackedBytes = 0;
    uint64_t fileBytes = 0;
    uint64_t spotChecks = 0;
    /// Sentences about input that did not fit a limit, UTF-8.
    std::vector<std::string> notes;
    Latin1Converter::Counts conversions;

    /// Adds a note; beyond a handful of one kind only their number is kept.
    void note(const std::string& kind, const std::string& sentence);

    /// Writes the closing summary for people.
    void print(std::ostream& out) const;

private:
    std::map<std::string, uint64_t> _notesOfKind;

    void printConversions(std::ostream& out) const;
};

} // namespace teskel
