// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/diagnostics/diagnostics.h"
#include "lexicon/text/latin1converter.h"

#include <set>
#include <string>
#include <string_view>

namespace teskel
{

/// Tells of each character that a conversion had to change, once, where it occurred first.
class ConversionNotes
{
public:
    /// Looks for what is new in `counts` since the last call.
    void tell(const Latin1Converter::Counts& counts, std::string_view where,
              Diagnostics& diagnostics);

private:
    std::set<Latin1Converter::Counts::key_type> _told;
};

/// A character for people: itself, if it can be shown, and its number.
std::string shownCharacter(char32_t character);

} // namespace teskel
