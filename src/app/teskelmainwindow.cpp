// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"

#include "base/oneline.h"
#include "files/fileloader.h"
#include "files/qteskelfileinfo.h"
#include "files/qteskelfilemenu.h"
#include "lookup/teskelmainwidget.h"
#include "platform/application/qpeapplication.h"
#include "platform/pluginpause.h"
#include "platform/resource.h"
#include "platform/toolbar/qpemenubar.h"
#include "platform/toolbar/qpemenutoolfocusmanager.h"
#include "platform/toolbar/qpetoolbar.h"
#include "settings/aboutdialog.h"
#include "settings/preferencesdialog.h"
#include "widgets/buttongroupbox.h"
#include "widgets/menubutton.h"
#include "widgets/plainmessage.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{

/// The value that a group of two buttons stands for; no selection counts as the second.
template<typename Setting>
Setting chosen(const teskel::ButtonGroupBox* group)
{
    return static_cast<Setting>(group->selectedId() != 0 ? 1 : 0);
}

} // namespace

TeskelMainWindow::TeskelMainWindow(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QMainWindow(parent, flags)
{
    setObjectName(QString::fromUtf8(name));
    // The tool bar carries the menus: a context menu that hides it would lock the person out.
    setContextMenuPolicy(Qt::NoContextMenu);
    setCaption(tr("Teskel"));

    _mainWidget = new TeskelMainWidget(this, _preferences);
    setCentralWidget(_mainWidget);

    createBars();
    QAction* preferences = createMenus();
    createOpenButton();
    createViewCommands();
    _toolBar->addAction(preferences);

    addToolBar(Qt::TopToolBarArea, _toolBar);
    QPEMenuToolFocusManager::manager()->addWidget(_toolBar);
    resetLayout();
}

TeskelMainWindow::~TeskelMainWindow()
{
    // The lookup view writes a font through the settings record, so it goes while the record lives.
    delete takeCentralWidget();
    _mainWidget = nullptr;
}

QAction* TeskelMainWindow::addCommand(const QString& text, const char* icon, Command slot)
{
    auto* action = new QAction(text, this);
    if (icon)
        action->setIcon(Resource::loadIcon(QString::fromLatin1(icon)));
    action->setToolTip(text);
    // Keeps the desktop from moving "Preferences ..." and "About ..." to a menu of its own.
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, [this, slot] { (this->*slot)(); });
    return action;
}

void TeskelMainWindow::createBars()
{
    // The style reads pictures for their extension buttons, and no plug-in is needed for these.
    const teskel::PluginPause pause;
    _toolBar = new QPEToolBar(this);
    _toolBar->setMovable(false);
    _toolBar->setFloatable(false);
    _menuBar = new QPEMenuBar(_toolBar);
    _toolBar->addWidget(_menuBar);
}

QAction* TeskelMainWindow::createMenus()
{
    auto* lexicon = new QMenu(tr("Lexicon"), this);
    auto* edit = new QMenu(tr("Edit"), this);

    QAction* addEditWord = addCommand(tr("Add/Edit Word"), "teskel-custom-word",
                                      &TeskelMainWindow::lexiconAddEditWord);
    lexicon->addAction(addEditWord);
    _toolBar->addAction(addEditWord);
    lexicon->addAction(
        addCommand(tr("Random Word"), nullptr, &TeskelMainWindow::lexiconRandomWord));
    lexicon->addAction(
        addCommand(tr("Delete current"), nullptr, &TeskelMainWindow::lexiconDeleteCurrent));
    edit->addAction(addCommand(tr("Copy"), "copy", &TeskelMainWindow::editCopy));
    edit->addAction(
        addCommand(tr("Copy translation"), nullptr, &TeskelMainWindow::editCopyTranslation));
    edit->addAction(addCommand(tr("Paste"), "paste", &TeskelMainWindow::editPaste));
    edit->addSeparator();
    QAction* preferences = addCommand(tr("Preferences ..."), "teskel-preferences",
                                      &TeskelMainWindow::optionsPreferences);
    edit->addAction(preferences);
    lexicon->addSeparator();
    lexicon->addAction(addCommand(tr("About ..."), nullptr, &TeskelMainWindow::optionsAbout));

    _menuBar->addMenu(lexicon);
    _menuBar->addMenu(edit);
    return preferences;
}

void TeskelMainWindow::createOpenButton()
{
    auto* button = new teskel::MenuButton(_toolBar);
    button->setIcon(Resource::loadIcon(u"teskel-open"_s));
    button->setToolTip(tr("Select a dictionary"));
    button->setAccessibleName(button->toolTip());
    button->setIconSize(_toolBar->iconSize());
    connect(_toolBar, &QToolBar::iconSizeChanged, button, &QToolButton::setIconSize);
    _toolBar->addWidget(button);

    _fileMenu = new QTeskelFileMenu(this, "fileMenu");
    connect(_fileMenu, &QTeskelFileMenu::fileSelected, this, &TeskelMainWindow::fileSelected);
    button->setMenu(_fileMenu);
}

void TeskelMainWindow::createViewCommands()
{
    _toolBar->addAction(
        addCommand(tr("Cross lookup"), "teskel-crosslookup", &TeskelMainWindow::crossLookup));

    auto* toggle = new QAction(Resource::loadIcon(u"teskel-toggleview"_s), tr("Toggle View"), this);
    connect(toggle, &QAction::toggled, this, &TeskelMainWindow::toggleView);
    _toolBar->addAction(toggle);
    toggle->setCheckable(true);
    toggle->setChecked(_preferences.getViewType() == PreferencesData::ToggleViewOn);
}

void TeskelMainWindow::tryOpen()
{
    if (_mainWidget->fileOpen(_preferences.getLastOpenFile(), true)) {
        updateGUI();
        return;
    }
    const QList<QTeskelFileInfo> files = FileLoader().getFileList(false);
    for (const QTeskelFileInfo& file : files) {
        if (_mainWidget->fileOpen(file.path(), true)) {
            updateGUI();
            return;
        }
    }
}

void TeskelMainWindow::updateGUI()
{
    setCaption(_mainWidget->getDictionaryName());
    _mainWidget->resetMainLayout();
    _mainWidget->resetLayout();
}

void TeskelMainWindow::resetLayout()
{
    _mainWidget->resetLayout();
    const bool bottom = _preferences.getMenuPosition() == PreferencesData::Bottom;
    addToolBar(bottom ? Qt::BottomToolBarArea : Qt::TopToolBarArea, _toolBar);
}

void TeskelMainWindow::openFile(const QString& path)
{
    // The path is remembered, and must then mean the same from any directory; a message about it
    // shows it as it was given.
    const QString opened = QDir::isRelativePath(path) ? QFileInfo(path).absoluteFilePath() : path;
    if (_mainWidget->fileOpen(opened, true))
        updateGUI();
    else
        _mainWidget->reportInvalidFile(path);
}

void TeskelMainWindow::setCaption(const QString& name)
{
    // Qt takes "[*]" for the place of a mark, and shows it where it stands twice.
    QString shown = teskel::oneLine(name);
    shown.replace("[*]"_L1, "[*][*]"_L1);
    setWindowTitle(tr("Teskel-") + shown);
}

void TeskelMainWindow::lexiconAddEditWord()
{
    teskel::showPlainMessage(this, QMessageBox::Information, tr("Teskel"),
                             tr("Sorry, this feature is not yet available."));
}

void TeskelMainWindow::lexiconRandomWord()
{
    _mainWidget->randomWord();
}

void TeskelMainWindow::lexiconDeleteCurrent()
{
    teskel::showPlainMessage(this, QMessageBox::Information, tr("Teskel"),
                             tr("The recomended way to delete lexicon \n"
                                "files is to use the standard \n"
                                "uninstalation procedure. Go to the \n"
                                "application launcher, select \"Settings\" \n"
                                "tab and from there select icon for \n"
                                "adding/removing software!"));
}

void TeskelMainWindow::editCopy()
{
    _mainWidget->editCopy();
}

void TeskelMainWindow::editCopyTranslation()
{
    _mainWidget->editCopyTranslation();
}

void TeskelMainWindow::editPaste()
{
    _mainWidget->editPaste();
}

void TeskelMainWindow::optionsPreferences()
{
    PreferencesDialog dialog(this, tr("Preferences").toUtf8().constData(), true);
    dialog.panelView()->setButton(_preferences.getLayout());
    dialog.panelHanded()->setButton(_preferences.getUserHandType());
    dialog.panelCombo()->setButton(_preferences.getComboPosition());
    dialog.panelMenu()->setButton(_preferences.getMenuPosition());
    dialog.setCurrentFont(_mainWidget->getEditFont());

    if (QPEApplication::execDialog(&dialog) != QDialog::Accepted)
        return;

    _preferences.setLayout(chosen<PreferencesData::PanelViewLayout>(dialog.panelView()));
    _preferences.setUserHandType(chosen<PreferencesData::UserHandType>(dialog.panelHanded()));
    _preferences.setComboPosition(chosen<PreferencesData::Position>(dialog.panelCombo()));
    _preferences.setMenuPosition(chosen<PreferencesData::Position>(dialog.panelMenu()));
    const QFont font = dialog.getSelectedFont();
    _mainWidget->setEditFont(font);
    _preferences.setFont(font, _mainWidget->getDictionaryFileName());
    resetLayout();
}

void TeskelMainWindow::optionsAbout()
{
    AboutDialog dialog(this, "About", true);
    QPEApplication::execDialog(&dialog);
}

void TeskelMainWindow::toggleView(bool on)
{
    _preferences.setViewType(on ? PreferencesData::ToggleViewOn : PreferencesData::ToggleViewOff);
    _mainWidget->resetMainLayout();
}

void TeskelMainWindow::setDocument(const QString& path)
{
    openFile(path);
}

void TeskelMainWindow::fileSelected(const QTeskelFileInfo& info)
{
    openFile(info.path());
}

void TeskelMainWindow::crossLookup()
{
    const QString name = _mainWidget->getDictionaryName();
    if (name.isEmpty())
        return;
    const QString path = _fileMenu->findFileName(_fileMenu->findReverseDictionary(name));
    if (path.isEmpty())
        _mainWidget->transferTranslation2Word(true);
    else if (_mainWidget->transferTranslation2Word(false))
        openFile(path);
}
