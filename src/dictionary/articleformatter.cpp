// SPDX-License-Identifier: MIT
#include "dictionary/articleformatter.h"

using namespace Qt::StringLiterals;

namespace teskel
{

QString ArticleFormatter::headword(const QString& word)
{
    return "<p><b>"_L1 + word + "</b></p>"_L1;
}

QString ArticleFormatter::format(const QString& article)
{
    QString result = u"<p>"_s;
    result.reserve(article.size() + article.size() / 4 + 64);
    for (qsizetype index = 0; index < article.size(); ++index) {
        const char16_t code = article.at(index).unicode();
        const char16_t character = code <= 0xFF ? code : u'\0';
        if (character == u'\n') {
            result += "</p><p>\n"_L1;
        } else if (character >= u'1' && character <= u'9') {
            if (index + 1 < article.size() && article.at(index + 1) == u'.') {
                result += "<b><font color=\"#0000FF\">"_L1;
                result += QChar(character);
                result += ".</font></b>"_L1;
                ++index;
            }
        } else {
            result += QChar(character);
        }
    }
    return result;
}

} // namespace teskel
