// SPDX-License-Identifier: MIT
#include "lexicon/entries/lexiconentry.h"

#include "dictionary/latin1fold.h"

namespace teskel
{

bool foldsAlike(const LexiconEntry& a, const LexiconEntry& b)
{
    return a.headwordLength == b.headwordLength && foldedCompare(a.text, b.text) == 0;
}

bool comesBefore(const LexiconEntry& a, const LexiconEntry& b)
{
    if (const int folded = foldedCompare(a.text, b.text); folded != 0)
        return folded < 0;
    // In Latin-1 a small letter has the higher code.
    if (const int bytes = a.headword().compare(b.headword()); bytes != 0)
        return bytes > 0;
    return a.order < b.order;
}

} // namespace teskel
