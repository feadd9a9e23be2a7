// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/tei/teinode.h"

#include <string>
#include <vector>

namespace teskel
{

/// An entry of a TEI dictionary (TEI P5, chapter "Dictionaries"), laid out as the FreeDict project
/// lays it out for dictd. UTF-8.
struct TeiEntry {
    /// A word as written, the line of that word with its pronunciation and grammar, and below it
    /// the other words in parentheses.
    struct Form {
        std::string word;
        std::string line;
    };
    std::vector<Form> forms;
    std::string text; ///< what stands below the line of the word, plain

    static TeiEntry layOut(const TeiNode& entry);
};

} // namespace teskel
