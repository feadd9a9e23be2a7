// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace teskel
{

/// Rewrites rich text so that its cost to show stays in proportion to its length.
///
/// The layout of nested tables doubles with each level, that of other nested elements grows with
/// the square of their depth, and an empty table grid costs by rows times columns: a text of a few
/// thousand characters could stop the program, as one huge length within a table could. What is too
/// deep or too wide is shown without its tag, a tag with such a length without its attributes.
/// Pictures, comments and style sheets are left out. Ordinary texts come back as they are.
class MarkupLimiter
{
public:
    static constexpr int MaxDepth = 64;
    static constexpr int MaxTableDepth = 4;
    static constexpr int MaxColumns = 16;
    static constexpr int MaxRows = 200;

    static QString limited(const QString& markup);

private:
    struct Element {
        QString name;
        /// Counts the cells in the present row, when the element is a table.
        int columns = 0;
    };
    struct Tag {
        QString name;
        QStringView attributes;
        bool closes = false;
    };

    explicit MarkupLimiter(const QString& markup)
        : _source(markup)
    {
    }
    QString run();
    void takeText(qsizetype end);
    void takeTag();
    void skipComment();
    void skipHiddenElement(const QString& name);
    void open(const Tag& tag);
    void openCell(const Tag& tag);
    void close(const QString& name);
    void closeAbove(std::size_t depth);
    void closeInline();
    void write(const Tag& tag);
    Element* innermostTable();

    const QString& _source;
    qsizetype _position = 0;
    QString _result;
    std::vector<Element> _open;
    int _tables = 0;
    int _rows = 0;
};

} // namespace teskel
