// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// Turns stored articles into the rich text of the article view.
///
/// Tags and entities in an article are passed on: lexicons use them on purpose.
class ArticleFormatter
{
public:
    /// The paragraph above an article: the headword in bold, as it stands.
    static QString headword(const QString& word);

    /// The article.
    ///
    /// A line feed ends a paragraph; "1." to "9." become bold blue sense numbers; a digit 1 to 9
    /// without a full stop is left out. The last paragraph stays open.
    static QString format(const QString& article);
};

} // namespace teskel
