// SPDX-License-Identifier: MIT
#include "widgets/article/qteskeledit.h"

#include "widgets/article/pictureplaceholder.h"
#include "widgets/article/viewtext.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
/// Below this lightness #FF0000 on the page loses its contrast.
constexpr double darkestPage = 0.85;

/// The relative luminance of a colour, from 0 for black to 1 for white.
double luminance(const QColor& colour)
{
    const auto linear = [](float part) {
        const auto value = static_cast<double>(part);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

bool hasTable(const QTextDocument& document)
{
    const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
    return std::any_of(frames.begin(), frames.end(), [](const QTextFrame* frame) {
        return qobject_cast<const QTextTable*>(frame) != nullptr;
    });
}
} // namespace

QTeskelEdit::QTeskelEdit(QWidget* parent, const char* name)
    : QTextEdit(parent)
{
    setObjectName(QString::fromLatin1(name));
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    document()->setDefaultStyleSheet(u"p { margin-top: 4px; margin-bottom: 4px; }"_s);
    document()->documentLayout()->registerHandler(QTextFormat::ImageObject,
                                                  new teskel::PicturePlaceholder(this));
    keepPageLight();
}

void QTeskelEdit::setText(const QString& text)
{
    _source = text;
    showSource();
}

void QTeskelEdit::clear()
{
    // Of what is typed most is no word yet, and the view is empty from the letter before.
    if (_shown != document() || !_source.isEmpty())
        setText(QString());
}

QString QTeskelEdit::text() const
{
    if (_shown == document())
        return _source;
    if (document()->isEmpty())
        return {};
    return _format == Qt::PlainText ? toPlainText() : toHtml();
}

void QTeskelEdit::setTextFormat(Qt::TextFormat format)
{
    if (format == _format)
        return;
    _source = text();
    _format = format;
    showSource();
}

void QTeskelEdit::showSource()
{
    const auto view = teskel::ViewText::of(_source, _format);
    // With the bar there from the start the text is laid out but once.
    const bool isLong = view.isRich && isHigherThanView(view.text.count("<p>"_L1));
    if (isLong)
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    {
        const QScopedValueRollback settingText(_isSettingText, true);
        if (view.isRich)
            setHtml(view.text);
        else
            setPlainText(view.text);
    }
    if (isLong) {
        // Paragraphs can be empty, or stand side by side.
        if (hasTable(*document()) || !isHigherThanView(document()->blockCount()))
            verticalScrollBar()->setRange(0, 0);
        setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    }
    if (view.percentLacking > 0)
        tellWhatIsLacking(view.percentLacking);
    watchDocument();
}

/// Whether so many paragraphs need more than the view's height, be they of a line each.
bool QTeskelEdit::isHigherThanView(qsizetype paragraphs) const
{
    return paragraphs * fontMetrics().lineSpacing() > viewport()->height();
}

void QTeskelEdit::tellWhatIsLacking(int percent)
{
    QTextCharFormat lettering;
    lettering.setFontItalic(true);
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertBlock(QTextBlockFormat(), lettering);
    end.insertText(tr("The last %1 % of this article are not shown: it seems to be damaged, and "
                      "all of it would take too long.")
                       .arg(percent));
}

void QTeskelEdit::forgetSource()
{
    _shown = nullptr;
}

/// QTextEdit's own ways to change the text cannot be overridden.
void QTeskelEdit::watchDocument()
{
    _shown = document();
    connect(_shown, &QTextDocument::contentsChanged, this, &QTeskelEdit::forgetSource,
            Qt::UniqueConnection);
}

bool QTeskelEdit::hasMarkedText() const
{
    return textCursor().hasSelection();
}

QString QTeskelEdit::markedText() const
{
    QString text = textCursor().selectedText();
    for (QChar& character : text) {
        switch (character.unicode()) {
        case QChar::ParagraphSeparator:
        case QChar::LineSeparator:
        case 0xFDD0: // begin and end of a table or frame
        case 0xFDD1:
            character = QLatin1Char('\n');
            break;
        default:
            break;
        }
    }
    // Stands for a picture, which is never shown.
    return text.remove(QChar::ObjectReplacementCharacter);
}

QMimeData* QTeskelEdit::createMimeDataFromSelection() const
{
    auto* const plain = new QMimeData;
    plain->setText(markedText());
    return plain;
}

/// Empty but not null: a null answer would make the document look for the file itself.
QVariant QTeskelEdit::loadResource(int type, const QUrl&)
{
    return type == QTextDocument::ImageResource ? QVariant(QImage()) : QVariant(QByteArray(""));
}

void QTeskelEdit::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        keepPageLight();
}

/// A text that brings the scroll bar or takes it away is laid out once more for the new width, and
/// the base class sees to that itself when the bar is in its place.
void QTeskelEdit::resizeEvent(QResizeEvent* event)
{
    if (!_isSettingText)
        QTextEdit::resizeEvent(event);
}

void QTeskelEdit::keepPageLight()
{
    if (luminance(palette().color(QPalette::Base)) >= darkestPage)
        return;
    QPalette page = palette();
    page.setColor(QPalette::Base, Qt::white);
    page.setColor(QPalette::Text, Qt::black);
    page.setColor(QPalette::PlaceholderText, Qt::darkGray);
    page.setColor(QPalette::Link, Qt::blue);
    page.setColor(QPalette::LinkVisited, Qt::darkMagenta);
    setPalette(page);
}
