// SPDX-License-Identifier: MIT
#include "lexicon/repair/salvagesource.h"

#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"

#include <algorithm>

namespace teskel
{

SalvageSource::SalvageSource(const Salvage& salvage)
    : _salvage(salvage)
{
    _description = givenback::description(salvage.description());
}

LatinForm SalvageSource::form() const
{
    const auto& entries = _salvage.entries();
    const bool hasReferences =
        givenback::hasReferences(_salvage.description()) ||
        std::any_of(entries.begin(), entries.end(), [](const Salvage::Entry& entry) {
            return givenback::hasReferences(entry.second);
        });
    return hasReferences ? LatinForm::LetterReferences : LatinForm::Plain;
}

// As an export would, which gives the same file again.
bool SalvageSource::read(EntryIntake& intake, std::string&)
{
    uint32_t number = 0;
    for (const auto& [headword, article] : _salvage.entries())
        add(intake, utf8::fromLatin1(headword), givenback::article(article), textKind(), ++number,
            utf8::fromLatin1(headword));
    return true;
}

} // namespace teskel
