// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/repair/salvage.h"
#include "lexicon/sources/lexiconsource.h"

namespace teskel
{

/// What was salvaged, as the source of a lexicon.
class SalvageSource : public LexiconSource
{
public:
    /// `salvage` must outlive the source.
    explicit SalvageSource(Salvage& salvage);

    /// The form that the texts have: the one that was built keeps it.
    LatinForm form() const;

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::MarkupArticle; }

private:
    Salvage& _salvage;
};

} // namespace teskel
