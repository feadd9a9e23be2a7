// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// What the article view hands on to be shown, made from the text that it was given.
struct ViewText {
    QString text;
    /// Whether `text` is markup for QTextDocument::setHtml rather than plain text.
    bool isRich = false;
    /// How much of the source, from its end, `text` lacks: 0, or 1 to 99.
    int percentLacking = 0;

    /// The source as `format` reads it, the letter references of rich text resolved. Markup whose
    /// structure would cost too much is plain text, tags included; of a text that is too costly
    /// even then (ShowingCost) only the beginning is there.
    static ViewText of(const QString& source, Qt::TextFormat format);
};

} // namespace teskel
