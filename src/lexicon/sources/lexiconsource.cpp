// SPDX-License-Identifier: MIT
#include "lexicon/sources/lexiconsource.h"

#include <algorithm>

namespace teskel
{

void LexiconSource::add(EntryIntake& intake, std::string_view headword, std::string_view article,
                        Latin1Converter::Text kind, uint32_t number, std::string_view where)
{
    const uint32_t order = _orderBefore + number;
    _lastOrder = std::max(_lastOrder, order);
    intake.add(headword, article, kind, order, where);
}

std::string placeInFile(std::string_view name, uint64_t line)
{
    return std::string(name) + ":" + std::to_string(line);
}

} // namespace teskel
