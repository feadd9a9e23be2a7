// SPDX-License-Identifier: MIT
#include "lexicon/file/articleof.h"

#include "dictionary/qtdictionary.h"

namespace teskel
{

std::string articleOf(QtDictionary& dictionary, CursorPosition position)
{
    std::string article(1024, '\0');
    auto size = static_cast<unsigned>(article.size());
    if (!dictionary.getDescription(position, article.data(), &size)) {
        article.resize(size);
        if (size == 0 || !dictionary.getDescription(position, article.data(), &size))
            return {};
    }
    article.resize(size - 1); // without the NUL
    return article;
}

} // namespace teskel
