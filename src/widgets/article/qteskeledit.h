// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTextDocument>
#include <QTextEdit>

/// A read-only view of rich text that loads nothing and gives back exactly the text that was set.
///
/// Markup may come from anyone: pictures and style sheets that it names are not loaded, links are
/// not followed, and a text whose structure would cost unbounded time or memory is shown as plain
/// text. Of one that would take long even so, only the beginning is shown, and a sentence says so.
/// References to characters (letterReference()) are shown as the characters. Everything else
/// looks as QTextEdit::setHtml shows it, with room for pictures. The page stays light in a dark
/// palette, so that coloured text keeps its contrast.
class QTeskelEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit QTeskelEdit(QWidget* parent = nullptr, const char* name = nullptr);

    /// Shows `text`, from the top and with nothing selected.
    void setText(const QString& text);
    /// The text as it was set, tags included. Where something else was shown since, through
    /// QTextEdit or the document, that: as HTML, or as plain text if it is read as such.
    QString text() const;
    /// Sets the empty text.
    void clear();

    /// How texts are read: Qt::RichText (at first), Qt::PlainText or Qt::AutoText. Shows the
    /// present text anew.
    void setTextFormat(Qt::TextFormat format);
    Qt::TextFormat textFormat() const { return _format; }

    bool hasMarkedText() const;
    /// The selected text without markup; paragraphs and lines end in a line feed.
    QString markedText() const;
    bool hasSelectedText() const { return hasMarkedText(); }
    QString selectedText() const { return markedText(); }

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// Plain text alone, for the clipboard, the selection and dragging.
    QMimeData* createMimeDataFromSelection() const override;

private:
    void showSource();
    bool isHigherThanView(qsizetype paragraphs) const;
    void tellWhatIsLacking(int percent);
    void watchDocument();
    void forgetSource();
    void keepPageLight();

    QString _source;
    /// The document that shows the source, null once its contents are others.
    QPointer<QTextDocument> _shown;
    Qt::TextFormat _format = Qt::RichText;
    bool _isSettingText = false;
};
