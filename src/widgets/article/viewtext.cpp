// SPDX-License-Identifier: MIT
#include "widgets/article/viewtext.h"

#include "script/letterreference.h"
#include "widgets/article/markuplimiter.h"

#include <QTextDocument>

namespace teskel
{

ViewText ViewText::of(const QString& source, Qt::TextFormat format)
{
    const bool isMarkup =
        format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(source));
    if (!isMarkup)
        return {source, false};
    const QString markup = withLetterReferencesResolved(source);
    return {markup, !MarkupLimiter::isBeyondLimits(markup)};
}

} // namespace teskel
