// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

namespace teskel
{

class MarkupTokenizer;

/// Tells how much of a text can be shown before it costs far more than its length explains.
///
/// The unit is what a character of running text costs. Each paragraph, change of letters and table
/// cell costs as much as some characters; a word that no line can end in, for each line that it
/// fills, as much as the whole of it. The longest articles of large dictionaries cost half of what
/// is allowed, or less; one of line feeds alone, or one endless word, would cost hundreds of times
/// as much as they do.
class ShowingCost
{
public:
    /// Allowed for any text, on top of what it has characters.
    static constexpr qint64 allowance = 12'000;
    static constexpr qint64 paragraphCost = 10;
    static constexpr qint64 letteringCost = 14;
    static constexpr qint64 cellCost = 30;
    /// A word of so many characters fits into a few lines.
    static constexpr qint64 usualWord = 64;
    /// The square of a longer word's length is divided by this.
    static constexpr qint64 wordDivisor = 400;

    /// Texts of no more characters, tags included, never cost too much.
    static constexpr qsizetype alwaysShown = 1'200;

    /// How much of the beginning of `markup` can be shown as rich text: its size, or less.
    static qsizetype showableMarkup(QStringView markup);
    /// The same of a text that is shown as it stands.
    static qsizetype showableText(QStringView text);

private:
    bool isSpent() const { return _cost > allowance + _characters; }
    void takeTag(const MarkupTokenizer& tag);
    qsizetype takeText(QStringView text);
    qsizetype takeWord(QStringView word);
    bool takeUnbroken(qsizetype size);

    /// Line feeds are blanks until something may have made them paragraphs.
    qint64 _lineFeedCost = 0;
    qint64 _cost = 0;
    qint64 _characters = 0;
    /// Characters since a line could end.
    qint64 _unbroken = 0;
};

} // namespace teskel
