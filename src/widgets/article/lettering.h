// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/article/markuptokenizer.h"

#include <QSet>
#include <QString>
#include <QStringView>

namespace teskel
{

/// Adds up what tags and styles ask for beyond the letters of the page: other fonts, letters and
/// lines that are dear to lay out, blanks that end no line.
///
/// What it cannot read it takes for the dearest.
class Lettering
{
public:
    void takeTag(const MarkupTokenizer& tag);
    void takeStyle(QStringView style);

    /// How many fonts there may be, but for bold and italic letters: sizes times faces times the
    /// rest.
    qint64 fonts() const { return _sizes * _faces * _others; }
    /// Whether a style may make each letter cost several times as much.
    bool isIntricate() const { return _isIntricate; }
    /// Whether lists and quotations may leave so little of a line that it takes a word or two.
    bool isNarrow() const { return _indents > usualIndents; }
    /// Whether a line may end at a blank, or at a line feed.
    bool endsLinesAtBlanks() const { return _endsLinesAtBlanks; }
    bool endsLinesAtLineFeeds() const { return _endsLinesAtLineFeeds; }
    /// Whether a line feed may begin a line.
    bool keepsLineFeeds() const { return _keepsLineFeeds; }
    bool hasRightToLeft() const { return _hasRightToLeft; }

private:
    static constexpr int usualIndents = 3;

    void takeAttribute(const QString& tag, const MarkupTokenizer::Attribute& attribute);
    void takeDeclaration(QStringView name, QStringView value);
    void count(qint64& fonts, QStringView kind, QStringView value, qint64 number = 1);
    void takeAnyStyle();

    QSet<QString> _seen;
    qint64 _sizes = 1;
    qint64 _faces = 1;
    qint64 _others = 1;
    int _indents = 0;
    bool _isIntricate = false;
    bool _endsLinesAtBlanks = true;
    bool _endsLinesAtLineFeeds = true;
    bool _keepsLineFeeds = false;
    bool _hasRightToLeft = false;
};

} // namespace teskel
