// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTextObjectInterface>

namespace teskel
{

/// Leaves room for the pictures of a document, and never looks for them.
///
/// The document's own handler opens the file that a picture names when nobody else has it.
class PicturePlaceholder : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    using QObject::QObject;

    /// The size that the markup asks for, that of a small icon where it does not.
    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    /// Draws nothing.
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;
};

} // namespace teskel
