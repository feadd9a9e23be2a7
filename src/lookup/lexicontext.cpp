// SPDX-License-Identifier: MIT
#include "lookup/lexicontext.h"

#include <algorithm>

namespace teskel
{

QString composed(const QString& text)
{
    return text.normalized(QString::NormalizationForm_C);
}

QString askedWord(const QString& text)
{
    QString word;
    word.reserve(text.size());
    bool followsControl = false;
    for (const QChar character : composed(text)) {
        const bool isControl = character.category() == QChar::Other_Control && !character.isNull();
        if (!isControl)
            word += character;
        else if (!followsControl)
            word += u' ';
        followsControl = isControl;
    }
    return word.trimmed();
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
