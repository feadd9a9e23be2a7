// SPDX-License-Identifier: MIT
#include "widgets/article/viewtext.h"

#include "widgets/article/markuplimiter.h"

#include <QTextDocument>

namespace teskel
{

ViewText ViewText::of(const QString& source, Qt::TextFormat format)
{
    const bool isMarkup =
        format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(source));
    return {source, isMarkup && !MarkupLimiter::isBeyondLimits(source)};
}

} // namespace teskel
