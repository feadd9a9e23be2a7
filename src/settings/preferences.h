// SPDX-License-Identifier: MIT
#pragma once

#include "settings/seensettings.h"
#include "settings/wordhistory.h"

#include <QByteArrayList>
#include <QFont>
#include <QHash>
#include <QList>
#include <QString>

#include <functional>
#include <utility>

class Config;

/// The one settings record: what the reader remembers from one run to the next.
///
/// It loads itself when constructed and saves itself when destroyed, so it must outlive everything
/// that uses it. The settings file is the platform's user file "Teskel"; each operation opens it
/// and lets it go again. A missing or unreadable file gives the defaults, without a message.
///
/// What stands in the file by now and was not read from there stays, unless this run changed it
/// (teskel::SeenSettings, teskel::WordHistory): the file may have come back, or another reader may
/// have written it.
///
/// Numbers of the file are kept as they are: an enumeration may hold a value that has no name, and
/// then counts as different from every named one.
class PreferencesData
{
public:
    /// How article and word list share the window.
    enum PanelViewLayout : int {
        Horizontal = 0, ///< one above the other
        Vertical = 1,   ///< side by side
    };
    /// The hand that holds the pen; decides the side of the word list.
    enum UserHandType : int { LeftHanded = 0, RightHanded = 1 };
    /// Which of the two proportions of the panels is in force.
    enum ViewType : int { ToggleViewOff = 0, ToggleViewOn = 1 };
    /// When typing starts a search.
    enum FindType : int {
        FindAsYouType = 0, ///< at every change of the typed text
        FindOnEnter = 1,   ///< when an entry is activated
    };
    /// The edge that the word entry or the tool bar keeps to.
    enum Position : int { Top = 0, Bottom = 1 };

    /// Sets the defaults, then loads the settings file over them.
    PreferencesData();
    /// Saves the record.
    ~PreferencesData();
    Q_DISABLE_COPY_MOVE(PreferencesData)

    /// Reads the settings file into the record; missing keys give their defaults.
    void load();
    /// Writes the record to the settings file, except over what others wrote since and this run did
    /// not change; takes in words that others added. Writes fonts, too, that setFont() could not;
    /// groups and keys that it does not know stay.
    /// @return false when it could not be written; then nothing of it is
    bool save();

    /// Sets what is called after each change of something that save() has to write; nothing at
    /// first. Setting what is already set is no change, and neither are load() and save().
    void setChangeHandler(std::function<void()> handler) { _changeHandler = std::move(handler); }

    PanelViewLayout getLayout() const { return _layout; }
    void setLayout(const PanelViewLayout& layout) { set(_layout, layout); }
    UserHandType getUserHandType() const { return _userHandType; }
    void setUserHandType(const UserHandType& type) { set(_userHandType, type); }
    ViewType getViewType() const { return _viewType; }
    void setViewType(const ViewType& type) { set(_viewType, type); }
    FindType getFindType() const { return _findType; }
    void setFindType(const FindType& type) { set(_findType, type); }
    Position getComboPosition() const { return _comboPosition; }
    void setComboPosition(Position position) { set(_comboPosition, position); }
    Position getMenuPosition() const { return _menuPosition; }
    void setMenuPosition(Position position) { set(_menuPosition, position); }

    /// Path of the dictionary that was open last; null before there was one.
    const QString& getLastOpenFile() const { return _lastOpenFile; }
    void setLastOpenFile(const QString& path) { set(_lastOpenFile, path); }

    /// Sets the font that dictionaries without one of their own are shown in.
    void setDefaultFont(const QFont& font) { _defaultFont = font; }

    /// The font of the dictionary whose file path is `group`, or the default font.
    ///
    /// The font also becomes the working font, so the next save() writes it as the global one.
    QFont getFont(const QString& group);

    /// Stores the size and family of `font` for the dictionary whose file path is `group`, at once.
    /// When that fails, it is a change for the next save().
    /// Where there are very many, fonts of files that are gone make room (teskel::FontGroups).
    void setFont(const QFont& font, const QString& group);

    /// Records a looked-up word; a word that is recorded already stays where it is.
    ///
    /// Until six words are held a new word goes to the end; from then on it goes to the front and
    /// the last one is dropped. Words are held as Latin-1, and characters outside Latin-1 do not
    /// survive: the word ends before the first of them.
    void addToMRUList(const QString& word);

    /// Makes `list` a copy of the recorded words, Latin-1, at most six, in the record's order.
    void fillMRUList(QByteArrayList& list) const { list = _history.words(); }

private:
    template<typename Field>
    void set(Field& field, const Field& value)
    {
        if (field == value)
            return;
        field = value;
        tellChange();
    }
    void tellChange() const;
    /// Keys and values of the record's own group.
    QList<std::pair<QString, QString>> ownEntries() const;
    void writeDictionaryFont(Config& config, const QFont& font, const QString& group);

    PanelViewLayout _layout = Vertical;
    UserHandType _userHandType = LeftHanded;
    ViewType _viewType = ToggleViewOn;
    FindType _findType = FindAsYouType;
    teskel::WordHistory _history;
    teskel::SeenSettings _seen;
    QFont _font;
    QFont _defaultFont;
    QHash<QString, QFont> _unsavedFonts; ///< by their groups
    QString _lastOpenFile;
    Position _comboPosition = Top;
    Position _menuPosition = Top;
    std::function<void()> _changeHandler;
};
