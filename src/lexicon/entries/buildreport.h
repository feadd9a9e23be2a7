// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/diagnostics/diagnostics.h"
#include "lexicon/diagnostics/progress.h"
#include "lexicon/text/latin1converter.h"

#include <cstdint>
#include <iosfwd>
#include <memory>

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
    /// What had to be done about input that does not fit.
    Diagnostics diagnostics;
    Latin1Converter::Counts conversions;

    /// Shows how far the build has come.
    std::shared_ptr<Progress> progress = std::make_shared<Progress>();

    /// Writes the closing summary for people.
    void print(std::ostream& out) const;

private:
    void printConversions(std::ostream& out) const;
};

} // namespace teskel
