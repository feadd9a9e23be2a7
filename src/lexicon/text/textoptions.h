// SPDX-License-Identifier: MIT
#pragma once

namespace teskel
{

/// How a lexicon's texts hold what Latin-1, and a reader that takes digits out, would lose.
enum class LatinForm {
    /// Every character beyond Latin-1, and every digit from 1 to 9 that is no sense number, is a
    /// letter reference, which the reader resolves. Nothing is lost.
    LetterReferences,
    /// Entities, stand-ins and "?"; digits as they are. For readers that know no letter references.
    Plain,
};

/// What a build is asked to do with texts.
struct TextOptions {
    LatinForm form = LatinForm::LetterReferences;
    bool pronunciations = true; ///< of no effect in the plain form, which has no letters for them

    bool keepsPronunciations() const
    {
        return pronunciations && form == LatinForm::LetterReferences;
    }
};

} // namespace teskel
