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

    /// The source as `format` reads it, the letter references of rich text resolved. Markup that
    /// would cost too much is plain text, tags included.
    static ViewText of(const QString& source, Qt::TextFormat format);
};

} // namespace teskel
