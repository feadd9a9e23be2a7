// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/article/markuplengths.h"
#include "widgets/article/markuptokenizer.h"
#include "widgets/article/markuptree.h"

#include <QHash>
#include <QString>

namespace teskel
{

/// Tells which rich texts a QTextDocument shows in time and memory that their length explains.
///
/// The cost of nested elements grows with the square of their depth, that of nested tables by a
/// factor with each level, an empty table grid costs by rows times columns, each picture by the
/// number of pictures, the layout of a text that is higher or wider than 2^23 pixels never ends,
/// and a gradient that lacks its numbers is read past its end: a text of a few characters could
/// stop the program.
class MarkupLimiter
{
public:
    static constexpr int maxDepth = 256;
    static constexpr int maxTableDepth = 4;
    /// Of all tables together, cells that are spanned or missing included.
    static constexpr int maxCells = 2000;
    static constexpr int maxPictures = 256;
    /// Characters of style sheets, each counted as often as it is read.
    static constexpr int maxStyleSheet = 65'536;
    /// Characters of style sheets, each counted as often as an element, or one that it lies in, is
    /// compared with it.
    static constexpr qint64 maxStyleWork = 10'000'000;
    /// In pixels, of what all lengths together may ask for.
    static constexpr double maxExtent = 4'000'000;

    /// Whether `markup` would cost more. It is read in one go, tag by tag.
    static bool isBeyondLimits(const QString& markup);

private:
    struct Grid {
        /// How many tables it lies in, itself included.
        int depth = 0;
        qint64 rows = 0;
        qint64 columns = 0;
        /// Columns that cells of earlier rows may reach into later ones.
        qint64 hanging = 0;
    };

    bool isWithin(QStringView markup);
    bool takeOpeningTag(const MarkupTokenizer& tag);
    bool takeClosingTag(const QString& name);
    bool takeElement(int index);
    bool takeTable(int index);
    bool takeRow(int index);
    bool takeCell(int index);
    bool readSpans(const MarkupTokenizer& tag);
    int tableAround(int index) const;
    const MarkupTree::Node& node(int index) const;

    MarkupTree _tree;
    MarkupLengths _lengths;
    QString _styleSheet;
    qint64 _styleSize = 0;
    qint64 _styleWork = 0;
    int _pictures = 0;
    /// By the indices of the tables in the tree.
    QHash<int, Grid> _grids;
    /// By the indices of the rows.
    QHash<int, qint64> _columns;
    int _looseTables = 0;
    qint64 _characters = 0;
    qint64 _cells = 0;
    qint64 _columnSpan = 1;
    qint64 _rowSpan = 1;
};

} // namespace teskel
