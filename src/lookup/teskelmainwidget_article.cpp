// SPDX-License-Identifier: MIT
// What TeskelMainWidget does with an article once it is there: shows it, copies it, and carries a
// word from it into the entry.
#include "lookup/teskelmainwidget.h"

#include "base/assertion.h"
#include "lookup/articleformatter.h"
#include "lookup/dictionarytexts.h"
#include "lookup/lexicontext.h"
#include "widgets/plainmessage.h"
#include "lookup/punctuation.h"
#include "lookup/wordsearch.h"
#include "widgets/qteskelcombobox.h"
#include "widgets/article/qteskeledit.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

namespace
{
constexpr auto unit = "teskelmainwidget.cpp";
} // namespace

void TeskelMainWidget::setText(const QString& word, const QString& description)
{
    _articleView->setText(teskel::ArticleFormatter::headword(word) + formatText(description));
}

QString TeskelMainWidget::formatText(const QString& description) const
{
    return teskel::ArticleFormatter::format(description);
}

QString TeskelMainWidget::stripString(QString& text) const
{
    return stripPunct(text);
}

QString TeskelMainWidget::stripPunct(QString& text) const
{
    return teskel::withoutOuterPunctuation(text);
}

bool TeskelMainWidget::transferTranslation2Word(bool notify)
{
    QString selected = _articleView->markedText();
    if (selected.isEmpty()) {
        teskel::showPlainMessage(this, QMessageBox::Information, tr("Teskel"),
                                 tr("The cross-lookup button will only \n"
                                    "operate when there is a word \n"
                                    "selected in the article field."));
        return false;
    }
    const QString word = teskel::composed(stripString(selected));
    // Nothing can be known while no dictionary is open.
    if (!TESKEL_ASSERT(_dictionary.isOpen(), "_dictionary.isOpen()", unit))
        return true;
    if (const auto known = teskel::knownPart(_dictionary, word))
        setComboText(*known, notify);
    return true;
}

void TeskelMainWidget::randomWord()
{
    if (!_dictionary.isOpen())
        return;
    const QString word = teskel::randomWord(_dictionary);
    if (!word.isEmpty())
        setComboText(word, true);
}

void TeskelMainWidget::editCopy()
{
    const QString text = _wordEntry->lineEdit()->text();
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void TeskelMainWidget::editCopyTranslation()
{
    const QString source = _articleView->text();
    if (!source.isEmpty())
        QApplication::clipboard()->setText(source);
}

void TeskelMainWidget::editPaste()
{
    const QString text = QApplication::clipboard()->text();
    if (!text.isEmpty())
        _wordEntry->lineEdit()->setText(text);
}
