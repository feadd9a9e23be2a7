// SPDX-License-Identifier: MIT
#include "lookup/teskelmainwidget.h"

#include "base/assertion.h"
#include "base/oneline.h"
#include "dictionary/articleformatter.h"
#include "lookup/dictionarytexts.h"
#include "lookup/lexicontext.h"
#include "lookup/navigationevent.h"
#include "lookup/qdictionarylistbox.h"
#include "lookup/qdictionarylistboxitem.h"
#include "lookup/slotpause.h"
#include "settings/preferences.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/plainmessage.h"
#include "widgets/qteskelcombobox.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

#include <cstring>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto unit = "teskelmainwidget.cpp";
constexpr int listRows = 20;

constexpr auto listSelectionChanged =
    qOverload<QTeskelListBoxItem*>(&QTeskelListBox::selectionChanged);

/// The list is about to be refilled; that is no choice of the user's.
[[nodiscard]] auto pauseSelection(QDictionaryListBox* list, TeskelMainWidget* widget)
{
    return teskel::SlotPause(static_cast<QTeskelListBox*>(list), listSelectionChanged, widget,
                             &TeskelMainWidget::listBoxSelectionChanged);
}

/// The entry is about to change by program; that is nothing to look up.
[[nodiscard]] auto pauseTyping(QTeskelComboBox* entry, TeskelMainWidget* widget)
{
    return teskel::SlotPause(entry, &QTeskelComboBox::textChanged, widget,
                             &TeskelMainWidget::comboBoxTextChanged);
}

} // namespace

TeskelMainWidget::TeskelMainWidget(QWidget* parent, PreferencesData& preferences)
    : QWidget(parent)
    , _preferences(preferences)
    , _layout(this)
{
    setObjectName(u"TeskelMainWidget"_s);
    // Left and right hand mean the same in every language.
    setLayoutDirection(Qt::LeftToRight);
    createArticleView();
    createWordList();
    createWordEntry();
    _layout.addWidgets(_wordEntry, _articleView, _wordList);

    connect(_wordList, listSelectionChanged, this, &TeskelMainWidget::listBoxSelectionChanged);
    connect(_wordEntry, &QTeskelComboBox::textChanged, this,
            &TeskelMainWidget::comboBoxTextChanged);
    connect(_wordEntry, &QComboBox::activated, this, &TeskelMainWidget::comboActivated);
    _mruOnSelection = true;
    resetLayout();
    _wordEntry->setFocus();
}

TeskelMainWidget::~TeskelMainWidget()
{
    // Children that die after this destructor must not reach its slots.
    disconnect(_wordList, nullptr, this, nullptr);
    disconnect(_wordEntry, nullptr, this, nullptr);
    if (_dictionary.isOpen())
        _preferences.setFont(_articleView->font(), _dictionary.getUrl());
}

void TeskelMainWidget::createArticleView()
{
    _articleView = new QTeskelEdit(this);
    _articleView->setAccessibleName(tr("Article"));
    _articleView->setFocusPolicy(Qt::NoFocus);
    _articleView->setTextFormat(Qt::RichText);
    setInitialText();
    // Style and platform give the class its font only when the view is polished.
    _articleView->ensurePolished();
    _preferences.setDefaultFont(_articleView->font());
}

void TeskelMainWidget::createWordList()
{
    _wordList = new QDictionaryListBox(&_dictionary, this);
    _wordList->setAccessibleName(tr("Words"));
    _wordList->setFocusPolicy(Qt::NoFocus);
}

void TeskelMainWidget::createWordEntry()
{
    _wordEntry = new QTeskelComboBox(_wordList, this);
    _wordEntry->setAccessibleName(tr("Word"));
    // A long word in the history must neither widen the window nor lay it out anew.
    _wordEntry->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setFocusProxy(_wordEntry);
    _wordEntry->installEventFilter(this);

    QByteArrayList history;
    _preferences.fillMRUList(history);
    for (const QByteArray& word : std::as_const(history))
        _wordEntry->addItem(QString::fromLatin1(word));
}

bool TeskelMainWidget::fileOpen(const QString& path, bool quiet)
{
    if (_dictionary.open(path) != -1) {
        _wordList->clear();
        fillControls();
        return true;
    }
    if (!quiet)
        reportInvalidFile(path);
    return false;
}

void TeskelMainWidget::reportInvalidFile(const QString& path)
{
    teskel::showPlainMessage(this, QMessageBox::Critical, tr("Teskel"),
                             tr("File\n%1\nis not a valid dictionary").arg(teskel::oneLine(path)));
}

void TeskelMainWidget::fillControls()
{
    TESKEL_ASSERT(_dictionary.isOpen(), "_dictionary.isOpen()", unit);
    _articleView->setText(teskel::dictionaryDescription(_dictionary));
    showFirstWords();
    update();

    _preferences.setLastOpenFile(_dictionary.getUrl());
    setEditFont();
    find();
    _wordEntry->setEnabled(true);
}

void TeskelMainWidget::showFirstWords()
{
    _wordList->clear();
    const std::unique_ptr<DictionaryIterator> iterator(_dictionary.createIterator());
    CursorPosition position = iterator->begin();
    for (int row = 0; row < listRows; ++row) {
        if (iterator->isValid(position)) {
            const QString word = QString::fromLatin1(iterator->getWord());
            _wordList->insertItem(new QDictionaryListBoxItem(word, position));
        }
        position = iterator->move(position, 1);
    }
    _wordList->adjustScrollBars();
}

void TeskelMainWidget::setInitialText()
{
    _articleView->setText(
        "<font color=\"#FF0000\">"_L1 +
        tr("There are no dictionary lexicons installed for Teskel Dictionary Reader. "
           "<p>If you have only installed the shell program, then be advised you must also "
           "install some reference files (lexicons) that the program can take advantage of. "
           "</p>") +
        "</font><font color=\"#0000FF\">"_L1 +
        tr("<p>Language, scientific and entertainment lexicons can be made from the free "
           "dictionaries of the FreeDict project with the program teskel-lexicon, which comes "
           "with this reader.</p>") +
        "</font>"_L1);
}

void TeskelMainWidget::resetLayout()
{
    resetMainLayout();
    const bool isEntryBelow = _preferences.getComboPosition() == PreferencesData::Bottom;
    // Qt keeps some memory each time that a widget hides and shows itself, so it does so only for
    // what is to move.
    if (!isHidden() && _layout.isEntryBelowPanels() == isEntryBelow)
        return;
    // Hiding would hand the keyboard to some other widget of the window.
    const bool hadFocus = _wordEntry->hasFocus();
    hide();
    _layout.placeEntry(isEntryBelow);
    adjustSize();
    show();
    if (hadFocus)
        _wordEntry->setFocus();
}

void TeskelMainWidget::resetMainLayout()
{
    _layout.arrangePanels(teskel::PanelArrangement::of(_preferences));
}

void TeskelMainWidget::find()
{
    const QString text = _wordEntry->currentText();
    if (!_dictionary.isOpen() || text.isEmpty())
        return;
    for (QString asked : teskel::askedWords(text)) {
        const auto word = teskel::toLexiconBytes(asked);
        if (!word)
            break;
        const CursorPosition position = findWord(word->constData(), false);
        if (!position.isInvalid()) {
            setEditText(position);
            saveMRUList(asked);
            return;
        }
        _articleView->clear();
        if (!findWord(word->constData(), true).isInvalid())
            return;
    }
    _articleView->clear();
}

CursorPosition TeskelMainWidget::findWord(const char* word, bool prefix)
{
    TESKEL_ASSERT(std::strlen(word) > 0, "strlen(word)>0", unit);
    const CursorPosition position = _dictionary.findWord(word, CursorPosition::invalid(), prefix);
    if (!position.isInvalid()) {
        const auto pause = pauseSelection(_wordList, this);
        _wordList->fill(position);
    }
    return position;
}

void TeskelMainWidget::comboBoxTextChanged(const QString& text)
{
    if (_dictionary.isOpen() && !text.isEmpty() &&
        _preferences.getFindType() == PreferencesData::FindAsYouType)
        find();
}

void TeskelMainWidget::comboActivated(int index)
{
    if (_preferences.getFindType() != PreferencesData::FindOnEnter)
        return;
    const QString item = _wordEntry->text(index);
    TESKEL_ASSERT(item.length() > 0, "item.length()>0", unit);
    const auto pause = pauseTyping(_wordEntry, this);
    // An empty item was reported, and goes on to be.
    const QStringList words = item.isEmpty() ? QStringList{item} : teskel::askedWords(item);
    for (const QString& asked : words) {
        const auto word = teskel::toLexiconBytes(asked);
        if (!word || !findWord(word->constData(), false).isInvalid())
            break;
    }
}

void TeskelMainWidget::listBoxSelectionChanged(QTeskelListBoxItem* item)
{
    const auto* const row = dynamic_cast<QDictionaryListBoxItem*>(item);
    if (row == nullptr || row->getCursorPosition().isInvalid())
        return;
    setEditText(row->getCursorPosition());
    QString word = row->text();
    if (_mruOnSelection)
        saveMRUList(word);
    setComboText(word, false);
}

void TeskelMainWidget::setEditText(CursorPosition position)
{
    if (const auto article = teskel::articleAt(_dictionary, position))
        setText(teskel::wordAt(_dictionary, position), *article);
    else
        _articleView->clear();
}

void TeskelMainWidget::setComboText(const QString& text, bool notify)
{
    const auto change = [&] {
        _wordEntry->lineEdit()->setText(text);
        selectEntryText();
    };
    if (notify) {
        change();
        return;
    }
    const auto pause = pauseTyping(_wordEntry, this);
    change();
}

void TeskelMainWidget::selectEntryText()
{
    QLineEdit* const edit = _wordEntry->lineEdit();
    edit->setSelection(0, edit->maxLength());
}

void TeskelMainWidget::saveMRUList(QString& word)
{
    if (word.isEmpty())
        return;
    _preferences.addToMRUList(word);
    const auto pause = pauseTyping(_wordEntry, this);
    for (int index = 0; index < _wordEntry->count(); ++index) {
        if (_wordEntry->text(index) == word)
            return;
    }
    _wordEntry->insertHistoryItem(word);
}

QFont TeskelMainWidget::getEditFont() const
{
    return _articleView->font();
}

void TeskelMainWidget::setEditFont(const QFont& font)
{
    _articleView->setFont(font);
}

void TeskelMainWidget::setEditFont()
{
    if (_dictionary.isOpen())
        setEditFont(_preferences.getFont(_dictionary.getUrl()));
}

QString TeskelMainWidget::getDictionaryFileName()
{
    return _dictionary.isOpen() ? _dictionary.getUrl() : QString();
}

QString TeskelMainWidget::getDictionaryName()
{
    return _dictionary.isOpen() ? teskel::dictionaryName(_dictionary) : QString();
}

void TeskelMainWidget::customEvent(QEvent* event)
{
    if (event->type() == teskel::navigationStart)
        _mruOnSelection = false;
    else if (event->type() == teskel::navigationFinish)
        _mruOnSelection = true;
    else
        QWidget::customEvent(event);
}

bool TeskelMainWidget::eventFilter(QObject* watched, QEvent* event)
{
    // The release of a key that is held goes elsewhere now, so the navigation ends here.
    if (watched == _wordEntry && event->type() == QEvent::FocusOut)
        _mruOnSelection = true;
    return QWidget::eventFilter(watched, event);
}

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
    const QString word = stripString(selected);
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
