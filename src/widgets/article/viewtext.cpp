// SPDX-License-Identifier: MIT
#include "widgets/article/viewtext.h"

#include "script/letterreference.h"
#include "widgets/article/markuplimiter.h"
#include "widgets/article/showingcost.h"

#include <QTextDocument>

#include <algorithm>

namespace teskel
{

namespace
{

ViewText beginningOf(const QString& text, qsizetype size, bool isRich)
{
    if (size == text.size())
        return {text, isRich};
    const double lacking =
        static_cast<double>(text.size() - size) / static_cast<double>(text.size());
    return {text.first(size), isRich, std::clamp(qRound(lacking * 100), 1, 99)};
}

} // namespace

ViewText ViewText::of(const QString& source, Qt::TextFormat format)
{
    const bool isMarkup =
        format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(source));
    if (!isMarkup)
        return beginningOf(source, ShowingCost::showableText(source), false);
    const QString markup = withLetterReferencesResolved(source);
    ViewText rich = beginningOf(markup, ShowingCost::showableMarkup(markup), true);
    if (!MarkupLimiter::isBeyondLimits(rich.text))
        return rich;
    return beginningOf(markup, ShowingCost::showableText(markup), false);
}

} // namespace teskel
