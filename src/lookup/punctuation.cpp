// SPDX-License-Identifier: MIT
#include "lookup/punctuation.h"

#include <algorithm>

namespace teskel
{

QString withoutOuterPunctuation(const QString& text)
{
    const auto isWordCharacter = [](QChar character) {
        return !character.isPunct() && !character.isSpace();
    };
    const auto first = std::find_if(text.cbegin(), text.cend(), isWordCharacter);
    const auto last = std::find_if(text.crbegin(), text.crend(), isWordCharacter);
    if (first == text.cend())
        return QString();
    return text.mid(first - text.cbegin(), last.base() - first);
}

} // namespace teskel
