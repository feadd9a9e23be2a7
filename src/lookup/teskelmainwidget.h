// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/qtdictionary.h"
#include "lookup/lookuplayout.h"

#include <QWidget>

class PreferencesData;
class QDictionaryListBox;
class QTeskelComboBox;
class QTeskelEdit;
class QTeskelListBoxItem;

/// Keeps the word entry, the word list and the article view in step with the one open dictionary.
///
/// All operations run on the thread of the event loop. Texts from the dictionary are Latin-1.
class TeskelMainWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param preferences not owned; must outlive the widget, whose destructor stores a font in it
    TeskelMainWidget(QWidget* parent, PreferencesData& preferences);
    ~TeskelMainWidget() override;
    Q_DISABLE_COPY_MOVE(TeskelMainWidget)

    /// Opens the dictionary at `path` and shows it.
    ///
    /// On failure a message box says so unless `quiet`, and the display stays as it was.
    bool fileOpen(const QString& path, bool quiet);
    /// Tells the user, in a message box, that the file at `path` is no dictionary.
    void reportInvalidFile(const QString& path);

    /// Arranges the panels and places the entry row as the settings ask for.
    void resetLayout();
    /// Arranges the panels alone.
    void resetMainLayout();

    /// Looks up the text of the entry: shows its article, or moves the list to its beginning.
    void find();
    /// Moves the list to `word` (Latin-1) or, with `prefix`, to the first word that begins with it.
    /// @return the word's position, invalid if there is none; the list then stays where it was
    CursorPosition findWord(const char* word, bool prefix);

    /// Shows the article of `position`; an unreadable one is shown empty.
    void setEditText(CursorPosition position);
    /// Puts `text` into the entry and selects it; looks it up only if `notify`.
    void setComboText(const QString& text, bool notify);
    /// Adds `word` to the history of the settings and of the entry, unless it is there.
    void saveMRUList(QString& word);

    QFont getEditFont() const;
    void setEditFont(const QFont& font);
    /// Applies the article font that is stored for the open dictionary.
    void setEditFont();

    /// Path of the open dictionary, empty if none is open.
    QString getDictionaryFileName();
    /// Name of the open dictionary, empty if none is open.
    QString getDictionaryName();

    /// Shows a newly opened dictionary: description, first words, font, and the entry's word.
    void fillControls();
    /// Tells the user, in the article view, that there is no dictionary yet.
    void setInitialText();

    /// Shows `word` and its article, both possibly with rich-text tags.
    void setText(const QString& word, const QString& description);
    /// The rich text of a stored article; see teskel::ArticleFormatter.
    QString formatText(const QString& description) const;

    /// The word within a selected text.
    QString stripString(QString& text) const;
    /// `text` without the punctuation and white space around it.
    QString stripPunct(QString& text) const;
    /// Takes the word selected in the article into the entry, cut down to what the open dictionary
    /// knows. Looks it up only if `notify`.
    /// @return false, after a message, if nothing is selected
    bool transferTranslation2Word(bool notify);

    /// Puts a random word of the dictionary into the entry.
    void randomWord();
    /// Copies the entry's text.
    void editCopy();
    /// Copies the article's rich-text source, tags included.
    void editCopyTranslation();
    /// Replaces the entry's text by the clipboard's.
    void editPaste();

public slots:
    void listBoxSelectionChanged(QTeskelListBoxItem* item);
    void comboBoxTextChanged(const QString& text);
    void comboActivated(int index);

protected:
    /// Hears from the word list when a navigation starts and finishes.
    void customEvent(QEvent* event) override;
    /// Hears that the entry loses the keyboard.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createArticleView();
    void createWordList();
    void createWordEntry();
    void showFirstWords();
    void selectEntryText();

    PreferencesData& _preferences;
    teskel::LookupLayout _layout;
    QTeskelComboBox* _wordEntry = nullptr;
    QDictionaryListBox* _wordList = nullptr;
    QTeskelEdit* _articleView = nullptr;
    QtDictionary _dictionary;
    bool _mruOnSelection = true;
};
