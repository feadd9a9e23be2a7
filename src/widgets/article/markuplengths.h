// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace teskel
{

/// Adds up how far the lengths that a rich text asks for can stretch it.
///
/// Attributes and style declarations that QTextDocument takes no length from do not count; a length
/// that may be hidden, by a character reference or an escape, counts as endless.
class MarkupLengths
{
public:
    void addAttribute(QStringView name, QStringView value);
    void addStyleSheet(QStringView sheet);

    /// Height or width in pixels, rather too much than too little, of what has so many table cells,
    /// elements and characters of text. Infinite for what cannot be told.
    double extent(qint64 cells, qint64 elements, qint64 characters) const;
    /// Whether a style may make the document take cells for those of another table.
    bool misplacesCells() const { return _misplacesCells; }
    /// Whether a style may ask for a gradient: the document reads past the end of one that is not
    /// as it expects it.
    bool hasGradient() const { return _hasGradient; }

private:
    struct Sum {
        double pixels = 0;
        /// In heights of a font.
        double fonts = 0;
    };

    Sum readStyle(QStringView style);
    void readDeclaration(QStringView name, QStringView value, Sum& sum);
    void readFont(QStringView value);
    void readLine(QStringView value);

    /// Of lengths that hold for one element, for every cell of a table, for every element.
    Sum _once;
    Sum _everyCell;
    Sum _everyElement;
    /// The largest font, and the highest line in heights of a font.
    double _font = 0;
    double _line = 0;
    bool _misplacesCells = false;
    bool _hasGradient = false;
};

} // namespace teskel
