// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/diagnostics/diagnosticcode.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// How much of the diagnostics is printed.
struct DiagnosticForm {
    bool strict = false; ///< warnings are errors
    bool quiet = false;  ///< errors alone
};

/// What a build tells about its sources, in the form of compilers.
///
/// The first of each kind are kept, of the others their number.
class Diagnostics
{
public:
    static constexpr uint64_t shownOfAKind = 5;

    /// @param where  "file:line", the file alone, or nothing
    /// @param what   what is there, and what is done about it; UTF-8, no full stop
    void add(const DiagnosticCode& code, std::string_view where, std::string_view what);

    /// All lines that are kept, without the ends of lines: "where: warning[code]: what".
    std::vector<std::string> lines(DiagnosticForm form = {}) const;
    uint64_t warnings() const { return _warnings; }

    /// The lines, and how many there are beyond them.
    void print(std::ostream& out, DiagnosticForm form) const;

private:
    struct Kept {
        const DiagnosticCode* code;
        std::string where;
        std::string what;
    };

    std::vector<Kept> _kept;
    std::map<std::string_view, std::pair<const DiagnosticCode*, uint64_t>> _times; ///< by name
    uint64_t _warnings = 0;
};

} // namespace teskel
