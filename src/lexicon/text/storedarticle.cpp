// SPDX-License-Identifier: MIT
#include "lexicon/text/storedarticle.h"

#include "lexicon/text/plainarticle.h"
#include "lexicon/text/sensenumbers.h"

namespace teskel
{

std::string storedArticle(Latin1Converter& converter, std::string_view text,
                          Latin1Converter::Text kind)
{
    using Text = Latin1Converter::Text;
    const bool isPlain = kind == Text::PlainArticle;
    std::string article;
    if (converter.form() == LatinForm::Plain) {
        converter.convert(text, kind, article);
        sensenumbers::protect(article, isPlain ? sensenumbers::LineStart::Sequence
                                               : sensenumbers::LineStart::Trusted);
        return article;
    }
    if (isPlain)
        converter.convert(richText(text), Text::MarkupArticle, article);
    else
        converter.convert(text, kind, article);
    sensenumbers::referDigits(article);
    return article;
}

} // namespace teskel
