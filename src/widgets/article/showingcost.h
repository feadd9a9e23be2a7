// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/article/lettering.h"
#include "widgets/article/textruns.h"

#include <QString>
#include <QStringView>

namespace teskel
{

class MarkupTokenizer;

/// Tells how much of a text can be shown before it costs far more than its length explains.
///
/// The unit is what a character of running text costs. Each paragraph, list entry, change of
/// letters, script or direction, font and table cell costs as much as some characters; a word that
/// no line can end in, for each line that it fills, as much as the whole of it; and what stands in
/// a table twice as much, in a table in that four times. The longest articles of large dictionaries
/// cost half of what is allowed, or less; one of line feeds alone, or one endless word, would cost
/// hundreds of times as much as they do.
class ShowingCost
{
public:
    /// Allowed for any text, on top of what it has characters.
    static constexpr qint64 allowance = 12'000;
    static constexpr qint64 paragraphCost = 12;
    static constexpr qint64 listCost = 40;
    static constexpr qint64 letteringCost = 15;
    /// Of a run of one script and one direction.
    static constexpr qint64 runCost = 10;
    /// Of one where some are written from right to left.
    static constexpr qint64 turnedRunCost = 24;
    static constexpr qint64 cellCost = 8;
    /// Of a character each time that it is laid out once more for a table.
    static constexpr qint64 tableCost = 2;
    /// The first use of a font reads a file.
    static constexpr qint64 fontCost = 800;
    static constexpr qint64 scriptCost = 2'500;
    /// So many scripts cost nothing: who reads them has their fonts in use.
    static constexpr qint64 usualScripts = 5;
    /// Of a character that is drawn with others, or not at all.
    static constexpr qint64 oddCharacterCost = 3;
    /// Of each character in lines of a word or two, and in letters of an unusual style.
    static constexpr qint64 narrowCost = 2;
    static constexpr qint64 intricateCost = 3;
    static constexpr qint64 attributeCost = 4;
    /// Of an attribute that makes a place that a link can lead to.
    static constexpr qint64 anchorCost = 40;
    static constexpr qint64 pictureCost = 36;
    /// So many characters of style sheets cost one with each tag.
    static constexpr qint64 styleSheetDivisor = 2;

    /// A word of so many characters fits into a few lines.
    static constexpr qint64 usualWord = 64;
    /// In a word, a change of letters or a new run weighs as much as so many characters.
    static constexpr qint64 runWeight = 12;
    /// A longer word's length is multiplied by its weight and divided by this.
    static constexpr qint64 wordDivisor = 400;

    /// Texts of no more characters, tags included, never cost too much.
    static constexpr qsizetype alwaysShown = 1'000;

    /// How much of the beginning of `markup` can be shown as rich text: its size, or less.
    static qsizetype showableMarkup(QStringView markup);
    /// The same of a text that is shown as it stands.
    static qsizetype showableText(QStringView text);

private:
    enum class Sheet : unsigned char { None, Opened, Read };

    bool isSpent() const { return _cost > allowance + _characters; }
    void charge(qint64 cost) { _cost += cost << _tables; }
    void endLine();
    void takeTag(const MarkupTokenizer& tag);
    void takeTable(const MarkupTokenizer& tag);
    void takeClosingTag(const QString& name);
    void takeStyleSheet(QStringView text);
    void takeAttributes(const MarkupTokenizer& tag);
    void takeFonts();
    bool endsLine(QChar character) const;
    qsizetype takeText(QStringView text);
    qsizetype takeWord(QStringView word);
    qsizetype takeLetters(QStringView letters);
    void takeReference(QStringView reference);
    void takeUnbroken(QStringView part);
    void takeScripts();
    void addUnbroken(qint64 characters, qint64 weight);

    Lettering _lettering;
    TextRuns _runs;
    /// Line feeds are blanks until something may have made them paragraphs.
    qint64 _lineFeedCost = 0;
    qint64 _cost = 0;
    qint64 _characters = 0;
    /// Since a line could end.
    qint64 _unbroken = 0;
    qint64 _unbrokenWeight = 0;
    qint64 _fonts = 1;
    qint64 _scripts = usualScripts;
    qint64 _styleSheet = 0;
    Sheet _sheet = Sheet::None;
    /// How deeply tables may nest that have begun, at most four.
    int _openTables = 0;
    int _tables = 0;
    /// Cells of the row, and of the longest one.
    qint64 _rowCells = 0;
    qint64 _columns = 0;
};

} // namespace teskel
