// SPDX-License-Identifier: MIT
#pragma once

#include "settings/preferences.h"
#include "settings/settingssaver.h"

#include <QMainWindow>

class QAction;
class QPEMenuBar;
class QPEToolBar;
struct QTeskelFileInfo;
class QTeskelFileMenu;
class TeskelMainWidget;

/// The reader's top-level window: turns menu and tool-bar commands into calls on the lookup view.
///
/// Owns the settings record, which is loaded before any widget is built, saved when it has changed
/// and when the window is destroyed. Everything else is owned by the window through Qt's parents
/// and children.
class TeskelMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit TeskelMainWindow(QWidget* parent = nullptr, const char* name = nullptr,
                              Qt::WindowFlags flags = {});
    ~TeskelMainWindow() override;
    Q_DISABLE_COPY_MOVE(TeskelMainWindow)

    /// Opens the dictionary that was open last, else the first installed one that opens.
    /// Silent: when none opens, the lookup view goes on showing its start text.
    void tryOpen();
    /// Brings the caption and the arrangement in line with the open dictionary and the settings.
    void updateGUI();
    /// Arranges the lookup view and docks the tool bar as the settings say.
    void resetLayout();

public slots:
    /// Opens the dictionary at `path`, from the current directory when it is relative; the lookup
    /// view reports a file that is not one.
    void openFile(const QString& path);
    /// Sets the window title to "Teskel-" followed by `name`.
    void setCaption(const QString& name);
    void lexiconAddEditWord();
    void lexiconRandomWord();
    void lexiconDeleteCurrent();
    void editCopy();
    void editCopyTranslation();
    void editPaste();
    void optionsPreferences();
    void optionsAbout();
    /// Chooses the panel proportion: the tool button is down when `on`.
    void toggleView(bool on);
    /// The platform's request to open a document.
    void setDocument(const QString& path);
    void fileSelected(const QTeskelFileInfo& info);
    /// Carries the word selected in the article to the dictionary of the opposite direction.
    void crossLookup();

private:
    using Command = void (TeskelMainWindow::*)();

    QAction* addCommand(const QString& text, const char* icon, Command slot);
    void createBars();
    /// Returns the command that stands in the tool bar too, at its end.
    QAction* createMenus();
    void createOpenButton();
    void createViewCommands();

    TeskelMainWidget* _mainWidget = nullptr;
    QPEToolBar* _toolBar = nullptr;
    QPEMenuBar* _menuBar = nullptr;
    QTeskelFileMenu* _fileMenu = nullptr;
    PreferencesData _preferences;
    teskel::SettingsSaver _settingsSaver{_preferences};
};
