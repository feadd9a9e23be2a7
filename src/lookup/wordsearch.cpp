// SPDX-License-Identifier: MIT
#include "lookup/wordsearch.h"

#include "dictionary/cursorposition.h"
#include "dictionary/dictionary.h"
#include "lookup/lexicontext.h"

#include <algorithm>

namespace teskel
{

std::optional<QString> knownPart(Dictionary& dictionary, const QString& text)
{
    const auto holds = [&dictionary](const QByteArray& word, bool prefix) {
        return !dictionary.findWord(word.constData(), CursorPosition::invalid(), prefix)
                    .isInvalid();
    };
    if (const auto word = toLexiconBytes(text); word && holds(*word, false))
        return text;

    qsizetype length = std::min(lexiconLength(text), std::max<qsizetype>(text.size() - 1, 0));
    QByteArray beginning = text.first(length).toLatin1();
    for (; length >= 0; --length) {
        beginning.truncate(length);
        if (holds(beginning, true))
            return text.first(length);
    }
    return std::nullopt;
}

} // namespace teskel
