// SPDX-License-Identifier: MIT
#include "lexicon/repair/salvagesource.h"

#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"

namespace teskel
{

SalvageSource::SalvageSource(Salvage& salvage)
    : _salvage(salvage)
{
    _description = givenback::description(salvage.description());
}

LatinForm SalvageSource::form() const
{
    return _salvage.hasReferences() ? LatinForm::LetterReferences : LatinForm::Plain;
}

// As an export would, which gives the same file again.
bool SalvageSource::read(EntryIntake& intake, std::string& error)
{
    const auto entries = _salvage.entries();
    uint32_t number = 0;
    LexiconEntry entry;
    while (entries->next(entry)) {
        const std::string headword = utf8::fromLatin1(entry.headword());
        add(intake, headword, givenback::article(entry.article()), textKind(), ++number, headword);
    }
    error = _salvage.entryError();
    return error.empty();
}

} // namespace teskel
