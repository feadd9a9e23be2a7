// SPDX-License-Identifier: MIT
#include "lookup/lexicontext.h"

#include <algorithm>

namespace teskel
{

QString composed(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C);
}

qsizetype lexiconLength(const QString& text)
{
    const auto end = std::find_if(text.cbegin(), text.cend(), [](QChar character) {
        return character.unicode() == 0 || character.unicode() > 0xFF;
    });
    return end - text.cbegin();
}

std::optional<QByteArray> toLexiconBytes(const QString& text)
{
    if (lexiconLength(text) < text.size())
        return std::nullopt;
    return text.toLatin1();
}

} // namespace teskel
