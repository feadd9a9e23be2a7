// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "files/qteskelfilemenu.h"
#include "lookup/teskelmainwidget.h"
#include "platform/config.h"
#include "platform/resource.h"
#include "platform/storage/storageinfo.h"
#include "platform/toolbar/qpetoolbar.h"
#include "settings/preferencesdialog.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/buttongroupbox.h"
#include "widgets/qteskelcombobox.h"

#include <QAction>
#include <QBoxLayout>
#include <QClipboard>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTranslator>
#include <QWindow>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;

namespace
{

/// Meets the next modal dialog as a person would, and keeps what it said.
class ModalVisitor : public QObject
{
public:
    explicit ModalVisitor(std::function<void(QDialog*)> visit)
        : _visit(std::move(visit))
    {
        connect(&_timer, &QTimer::timeout, this, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            _timer.stop();
            ++_visits;
            _title = dialog->windowTitle();
            if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
                _text = box->text();
                _icon = box->icon();
            }
            _visit(dialog);
        });
        _timer.start(1);
    }

    [[nodiscard]] int visits() const { return _visits; }
    [[nodiscard]] QString title() const { return _title; }
    [[nodiscard]] QString text() const { return _text; }
    [[nodiscard]] QMessageBox::Icon icon() const { return _icon; }

private:
    std::function<void(QDialog*)> _visit;
    QTimer _timer;
    int _visits = 0;
    QString _title;
    QString _text;
    QMessageBox::Icon _icon = QMessageBox::NoIcon;
};

/// Translates everything as a language with letters beyond ASCII might.
class Umlauts : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* /*context*/, const char* text,
                                    const char* /*disambiguation*/, int /*n*/) const override
    {
        return u"\u00E4 "_s + QString::fromUtf8(text);
    }
};

void acceptDialog(QDialog* dialog)
{
    dialog->accept();
}

/// The picture as it is painted: straight colours would come out of Qt's conversion differently on
/// different processors.
QImage picture(const QIcon& icon, int size)
{
    return icon.pixmap(QSize(size, size), 1.0)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Gives the application, and so every widget, a font of another size while it lives.
class ApplicationFont
{
public:
    explicit ApplicationFont(int pixels) { QApplication::setFont(ofSize(pixels)); }
    ~ApplicationFont() { QApplication::setFont(_before); }
    Q_DISABLE_COPY_MOVE(ApplicationFont)

    static QFont ofSize(int pixels)
    {
        QFont font = QApplication::font();
        font.setPixelSize(pixels);
        return font;
    }

private:
    QFont _before = QApplication::font();
};

} // namespace

class TestTeskelMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithoutSettingsAndDictionaries();
    void hasItsSlotsInOrder();
    void showsToolBarLeftToRight();
    void everyButtonFitsOnASmallScreen();
    void menusKeepTheirWidthAtEveryFontSize_data();
    void menusKeepTheirWidthAtEveryFontSize();
    void menusThatCannotFitAreReachedThroughTheirOwnButton();
    void keysReachTheButtonsThatDoNotFit();
    void commandsHaveTheirOwnIcons_data();
    void commandsHaveTheirOwnIcons();
    void namesMayHaveAnyLetters();
    void captionShowsTheNameAsItIs_data();
    void captionShowsTheNameAsItIs();
    void captionShowsNoControlCharacters();
    void showsMenusInOrder();
    void skipsLastFileThatIsGone();
    void opensLastFileBeforeTheFirstInstalled();
    void skipsInstalledFilesThatDoNotOpen();
    void openedFileStaysOpenAfterTryOpen();
    void invalidFileIsReportedAndStartContinues();
    void relativePathIsStoredAbsolute();
    void relativePathIsReportedAsGiven();
    void relativePathThatFailsIsTriedOnce();
    void messageShowsNoControlCharacters();
    void fileWithControlCharactersInItsNameIsOpened();
    void openingArrangesTheWindowAsTheSettingsSay();
    void documentRequestOpensFile();
    void menuChoiceOpensFile();
    void unavailableCommandsSayWhy();
    void cancelledPreferencesChangeNothing();
    void acceptedPreferencesAreStoredAndApplied();
    void acceptedPreferencesKeepFontOfTheOpenDictionary();
    void preferencesShowTheRecord_data();
    void preferencesShowTheRecord();
    void toolBarAtTheBottomAfterConstruction();
    void unknownMenuPositionCountsAsTop();
    void toggleViewStoresViewType();
    void toggleViewStartsAsStored();
    void crossLookupWithoutDictionaryDoesNothing();
    void crossLookupWithoutReverseStaysInDictionary();
    void crossLookupOpensTheReverse();
    void crossLookupLooksNothingUpBeforeTheReverseIsOpen();
    void crossLookupWithoutSelectionOpensNothing();
    void commandsReachTheLookupView();
    void aboutIsShownAndClosed();
    void settingsAreSavedWhenTheWindowDies();

private:
    QString install(const QString& name, const QList<teskel::test::Entry>& entries);
    QString installEnglish();
    QString installGerman();
    static QAction* action(const TeskelMainWindow& window, const QString& text);
    static void selectInArticle(const TeskelMainWindow& window, const QString& word);

    QString _start = QDir::currentPath();
    std::unique_ptr<QTemporaryDir> _home;
};

void TestTeskelMainWindow::init()
{
    QTest::failOnWarning(
        QRegularExpression(u"^(?!This plugin does not support|Cannot open file )"_s));
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(_home->isValid());
    // No card of the machine that runs the test.
    StorageRoots none;
    none.mountInfo = _home->filePath(u"mountinfo"_s);
    none.sysfs = _home->filePath(u"sys"_s);
    StorageInfo::setRoots(none);
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("QPEDIR", QFile::encodeName(_home->path()));
    qputenv("HOME", QFile::encodeName(_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home->filePath(u"config"_s)));
}

void TestTeskelMainWindow::cleanup()
{
    QVERIFY2(!QApplication::activeModalWidget(), "a dialog was left open");
    QVERIFY(QDir::setCurrent(_start));
    _home.reset();
}

QString TestTeskelMainWindow::install(const QString& name,
                                      const QList<teskel::test::Entry>& entries)
{
    const QString path = _home->filePath(u"teskel/"_s + name);
    DictionaryWriter writer;
    writer.addEntries(entries, 4);
    return writer.write(path) ? path : QString();
}

QString TestTeskelMainWindow::installEnglish()
{
    return install(u"Eng2Ger.PDB"_s, {{"ant", "Ameise"}, {"house", "1. Haus"}, {"tree", "Baum"}});
}

QString TestTeskelMainWindow::installGerman()
{
    return install(u"Ger2Eng.PDB"_s, {{"Ameise", "ant"}, {"Baum", "tree"}, {"Haus", "house"}});
}

QAction* TestTeskelMainWindow::action(const TeskelMainWindow& window, const QString& text)
{
    const auto actions = window.findChildren<QAction*>();
    for (QAction* candidate : actions) {
        if (candidate->text() == text && !candidate->menu())
            return candidate;
    }
    return nullptr;
}

void TestTeskelMainWindow::selectInArticle(const TeskelMainWindow& window, const QString& word)
{
    auto* article = window.findChild<QTeskelEdit*>();
    article->moveCursor(QTextCursor::Start);
    QVERIFY(article->find(word));
}

void TestTeskelMainWindow::startsWithoutSettingsAndDictionaries()
{
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.showMaximized();
    window.tryOpen();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.windowTitle(), u"Teskel-Teskel"_s);
    QCOMPARE(visitor.visits(), 0);
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::TopToolBarArea);
}

void TestTeskelMainWindow::hasItsSlotsInOrder()
{
    const QMetaObject& meta = TeskelMainWindow::staticMetaObject;
    QCOMPARE(meta.className(), "TeskelMainWindow");
    QStringList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        signatures.append(QString::fromLatin1(meta.method(i).methodSignature()));
    const QStringList expected{u"openFile(QString)"_s,
                               u"setCaption(QString)"_s,
                               u"lexiconAddEditWord()"_s,
                               u"lexiconRandomWord()"_s,
                               u"lexiconDeleteCurrent()"_s,
                               u"editCopy()"_s,
                               u"editCopyTranslation()"_s,
                               u"editPaste()"_s,
                               u"optionsPreferences()"_s,
                               u"optionsAbout()"_s,
                               u"toggleView(bool)"_s,
                               u"setDocument(QString)"_s,
                               u"fileSelected(QTeskelFileInfo)"_s,
                               u"crossLookup()"_s};
    QCOMPARE(signatures, expected);
}

void TestTeskelMainWindow::showsToolBarLeftToRight()
{
    TeskelMainWindow window;
    const auto* bar = window.findChild<QPEToolBar*>();
    QStringList names;
    const auto actions = bar->actions();
    for (QAction* entry : actions) {
        const QWidget* widget = bar->widgetForAction(entry);
        if (qobject_cast<const QMenuBar*>(widget))
            names.append(u"menus"_s);
        else
            names.append(widget->toolTip());
        const auto* button = qobject_cast<const QToolButton*>(widget);
        QVERIFY(!button || !button->icon().isNull());
    }
    QCOMPARE(names, (QStringList{u"menus"_s, u"Add/Edit Word"_s, u"Select a dictionary"_s,
                                 u"Cross lookup"_s, u"Toggle View"_s, u"Preferences ..."_s}));
    QVERIFY(!bar->isMovable());
    QVERIFY(!bar->isFloatable());
}

void TestTeskelMainWindow::everyButtonFitsOnASmallScreen()
{
    TeskelMainWindow window;
    const auto* bar = window.findChild<QPEToolBar*>();
    for (const int width : {240, 640, 240}) {
        window.resize(width, 320);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(bar->width(), width);
        const auto actions = bar->actions();
        for (QAction* entry : actions) {
            const QWidget* widget = bar->widgetForAction(entry);
            QTRY_VERIFY2(widget->isVisible(), qPrintable(widget->toolTip()));
            QTRY_VERIFY(widget->width() >= widget->sizeHint().width());
            QTRY_VERIFY(bar->rect().contains(widget->geometry()));
        }
    }
}

void TestTeskelMainWindow::menusKeepTheirWidthAtEveryFontSize_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (int size = 4; size <= 48; size += 3) {
        QTest::addRow("%d pixels", size) << size << Qt::LeftToRight;
        QTest::addRow("%d pixels from right to left", size) << size << Qt::RightToLeft;
    }
}

void TestTeskelMainWindow::menusKeepTheirWidthAtEveryFontSize()
{
    QFETCH(const int, size);
    QFETCH(const Qt::LayoutDirection, direction);
    const ApplicationFont font(size);
    TeskelMainWindow window;
    window.setLayoutDirection(direction);
    auto* bar = window.findChild<QPEToolBar*>();
    const auto* menus = bar->findChild<QMenuBar*>();
    const auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    window.resize(240, 320);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(bar->width(), 240);
    QTRY_VERIFY(bar->rect().contains(menus->geometry()));
    // What the bar keeps for itself: its edges, and its button for what does not fit.
    const QMargins edges = bar->layout()->contentsMargins();
    const int kept =
        edges.left() + edges.right() + more->sizeHint().width() + bar->layout()->spacing();
    if (menus->sizeHint().width() + kept > 240) {
        // The case of menusThatCannotFitAreReachedThroughTheirOwnButton().
        QVERIFY(menus->fontMetrics().horizontalAdvance(u"LexiconEdit"_s) > 120);
        return;
    }
    const auto titles = menus->actions();
    for (QAction* title : titles) {
        QTRY_VERIFY(menus->actionGeometry(title).isValid());
        QTRY_VERIFY2(menus->rect().contains(menus->actionGeometry(title)),
                     qPrintable(title->text()));
    }
    // A button that is not to be seen is reached through the bar's own one.
    const auto buttons = bar->actions();
    for (QAction* button : buttons)
        QVERIFY(bar->widgetForAction(button)->isVisible() || more->isVisible());
    QVERIFY(!more->isVisible() || bar->rect().contains(more->geometry()));
}

void TestTeskelMainWindow::menusThatCannotFitAreReachedThroughTheirOwnButton()
{
    const ApplicationFont font(120);
    TeskelMainWindow window;
    auto* bar = window.findChild<QPEToolBar*>();
    const auto* menus = bar->findChild<QMenuBar*>();
    const auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    const auto* moreMenus = menus->findChild<QToolButton*>(u"qt_menubar_ext_button"_s);
    QVERIFY(menus->sizeHint().width() > 240);
    // The tool bar must not make the window wider than the screen of a handheld.
    QVERIFY(bar->minimumSizeHint().width() < 120);
    window.setMinimumSize(1, 1);
    window.resize(240, 320);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(bar->width(), 240);
    QTRY_VERIFY(moreMenus->isVisible() && more->isVisible());
    QTRY_VERIFY(menus->rect().contains(moreMenus->geometry()));
    QTRY_VERIFY(bar->rect().contains(menus->geometry()));
    QTRY_VERIFY(bar->rect().contains(more->geometry()));
    const auto titles = menus->actions();
    for (QAction* title : titles)
        QVERIFY(menus->rect().contains(menus->actionGeometry(title)) ||
                moreMenus->menu()->actions().contains(title));

    QTest::keyClick(&window, Qt::Key_F10);
    const auto forward = window.isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    for (int step = 0; step < 3 && QApplication::focusWidget() != moreMenus; ++step)
        QTest::keyClick(QApplication::focusWidget(), forward);
    QCOMPARE(QApplication::focusWidget(), moreMenus);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
}

void TestTeskelMainWindow::commandsHaveTheirOwnIcons_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon"); // empty for none
    QTest::newRow("add") << u"Add/Edit Word"_s << u"teskel-custom-word"_s;
    QTest::newRow("random") << u"Random Word"_s << QString();
    QTest::newRow("delete") << u"Delete current"_s << QString();
    QTest::newRow("copy") << u"Copy"_s << u"copy"_s;
    QTest::newRow("copy translation") << u"Copy translation"_s << QString();
    QTest::newRow("paste") << u"Paste"_s << u"paste"_s;
    QTest::newRow("preferences") << u"Preferences ..."_s << u"teskel-preferences"_s;
    QTest::newRow("about") << u"About ..."_s << QString();
    QTest::newRow("open") << u"Select a dictionary"_s << u"teskel-open"_s;
    QTest::newRow("cross lookup") << u"Cross lookup"_s << u"teskel-crosslookup"_s;
    QTest::newRow("toggle view") << u"Toggle View"_s << u"teskel-toggleview"_s;
}

void TestTeskelMainWindow::commandsHaveTheirOwnIcons()
{
    QFETCH(const QString, text);
    QFETCH(const QString, icon);
    const TeskelMainWindow window;
    QIcon shown;
    if (const QAction* command = action(window, text)) {
        shown = command->icon();
    } else {
        const auto buttons = window.findChildren<QToolButton*>();
        const auto* button = *std::find_if(buttons.cbegin(), buttons.cend(), [&](auto* candidate) {
            return candidate->toolTip() == text;
        });
        shown = button->icon();
    }
    QCOMPARE(shown.isNull(), icon.isEmpty());
    for (const int size : {16, 24})
        QCOMPARE(picture(shown, size), picture(Resource::loadIcon(icon), size));
}

void TestTeskelMainWindow::keysReachTheButtonsThatDoNotFit()
{
    TeskelMainWindow window;
    window.setMinimumSize(1, 1);
    window.resize(120, 320);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto* more =
        window.findChild<QPEToolBar*>()->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    QTRY_VERIFY(more->isVisible());
    QCOMPARE(window.width(), 120);
    QTest::keyClick(&window, Qt::Key_F10);
    QTest::keyClick(QApplication::focusWidget(),
                    window.isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), more);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
}

void TestTeskelMainWindow::namesMayHaveAnyLetters()
{
    Umlauts translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const QString umlaut = u"\u00E4"_s;
    TeskelMainWindow window(nullptr, umlaut.toUtf8().constData());
    QCOMPARE(window.objectName(), umlaut);
    QString name;
    const ModalVisitor visitor([&name](QDialog* dialog) {
        name = dialog->objectName();
        dialog->reject();
    });
    window.optionsPreferences();
    QCOMPARE(name, umlaut + u" Preferences"_s);
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

void TestTeskelMainWindow::captionShowsTheNameAsItIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("ordinary") << u"Eng2Ger"_s;
    QTest::newRow("the mark of a changed document") << u"Eng[*]Ger"_s;
    QTest::newRow("the mark twice") << u"[*][*]"_s;
    QTest::newRow("brackets") << u"[[*]] [] *"_s;
}

void TestTeskelMainWindow::captionShowsTheNameAsItIs()
{
    QFETCH(const QString, name);
    TeskelMainWindow window;
    window.show();
    window.setCaption(name);
    QCOMPARE(window.windowHandle()->title(), u"Teskel-"_s + name);
}

void TestTeskelMainWindow::captionShowsNoControlCharacters()
{
    TeskelMainWindow window;
    window.setCaption(u"Eng\n2\tGer\u2028\u202Ex\u007F"_s);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng 2 Ger  x "_s);
}

void TestTeskelMainWindow::showsMenusInOrder()
{
    TeskelMainWindow window;
    const auto* menuBar = window.findChild<QPEToolBar*>()->findChild<QMenuBar*>();
    QStringList texts;
    const auto menus = menuBar->actions();
    for (const QAction* menu : menus) {
        texts.append(menu->text() + u':');
        const auto entries = menu->menu()->actions();
        for (const QAction* entry : entries)
            texts.append(entry->isSeparator() ? u"-"_s : entry->text());
    }
    QCOMPARE(texts, (QStringList{u"Lexicon:"_s, u"Add/Edit Word"_s, u"Random Word"_s,
                                 u"Delete current"_s, u"-"_s, u"About ..."_s, u"Edit:"_s, u"Copy"_s,
                                 u"Copy translation"_s, u"Paste"_s, u"-"_s, u"Preferences ..."_s}));
}

void TestTeskelMainWindow::skipsLastFileThatIsGone()
{
    QVERIFY(!installEnglish().isEmpty());
    PreferencesData().setLastOpenFile(_home->filePath(u"gone.PDB"_s));
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    QCOMPARE(visitor.visits(), 0);
}

void TestTeskelMainWindow::opensLastFileBeforeTheFirstInstalled()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString german = installGerman();
    PreferencesData().setLastOpenFile(german);
    TeskelMainWindow window;
    window.tryOpen();
    QCOMPARE(window.windowTitle(), u"Teskel-Ger2Eng"_s);
}

void TestTeskelMainWindow::skipsInstalledFilesThatDoNotOpen()
{
    QVERIFY(teskel::test::writeFile(_home->filePath(u"teskel/A.PDB"_s), "nothing"));
    QVERIFY(!installEnglish().isEmpty());
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    QCOMPARE(visitor.visits(), 0);
}

void TestTeskelMainWindow::openedFileStaysOpenAfterTryOpen()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString german = installGerman();
    TeskelMainWindow window;
    window.openFile(german);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), u"Teskel-Ger2Eng"_s);
}

void TestTeskelMainWindow::invalidFileIsReportedAndStartContinues()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString bad = _home->filePath(u"bad.PDB"_s);
    QVERIFY(teskel::test::writeFile(bad, QByteArray()));
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(bad);
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.title(), u"Teskel"_s);
    QCOMPARE(visitor.text(), u"File\n%1\nis not a valid dictionary"_s.arg(bad));
    QCOMPARE(window.windowTitle(), u"Teskel-Teskel"_s);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
}

void TestTeskelMainWindow::relativePathIsStoredAbsolute()
{
    const QString path = installEnglish();
    QVERIFY(QDir::setCurrent(_home->path()));
    {
        TeskelMainWindow window;
        window.openFile(u"teskel/Eng2Ger.PDB"_s);
        QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    }
    QCOMPARE(QFileInfo(PreferencesData().getLastOpenFile()).canonicalFilePath(),
             QFileInfo(path).canonicalFilePath());
    QVERIFY(QFileInfo(PreferencesData().getLastOpenFile()).isAbsolute());
    Config config(u"Teskel"_s);
    config.setGroup(PreferencesData().getLastOpenFile());
    QVERIFY(config.hasKey(u"FontName"_s));
    config.setGroup(u"teskel/Eng2Ger.PDB"_s);
    QVERIFY(!config.hasKey(u"FontName"_s));
}

void TestTeskelMainWindow::relativePathIsReportedAsGiven()
{
    QVERIFY(QDir::setCurrent(_home->path()));
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(u"gone.PDB"_s);
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.text(), u"File\ngone.PDB\nis not a valid dictionary"_s);
}

void TestTeskelMainWindow::relativePathThatFailsIsTriedOnce()
{
    QVERIFY(QDir::setCurrent(_home->path()));
    TeskelMainWindow window;
    const teskel::test::WarningCapture warnings;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(u"gone.PDB"_s);
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(warnings.count(u"gone.PDB"_s), 1);
}

void TestTeskelMainWindow::messageShowsNoControlCharacters()
{
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(_home->filePath(u"a\nis a valid\u2029dictionary\tb.PDB"_s));
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(
        visitor.text(),
        u"File\n%1/a is a valid dictionary b.PDB\nis not a valid dictionary"_s.arg(_home->path()));
}

void TestTeskelMainWindow::fileWithControlCharactersInItsNameIsOpened()
{
    const QString path = install(u"Eng\n2\tGer\u0001.PDB"_s, {{"ant", "Ameise"}});
    QVERIFY(!path.isEmpty());
    TeskelMainWindow window;
    const auto entries = window.findChild<QTeskelFileMenu*>()->actions();
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first()->text(), u"Eng 2 Ger "_s);
    entries.first()->trigger();
    QCOMPARE(window.findChild<TeskelMainWidget*>()->getDictionaryFileName(), path);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng 2 Ger "_s);
}

void TestTeskelMainWindow::openingArrangesTheWindowAsTheSettingsSay()
{
    const QString path = installEnglish();
    TeskelMainWindow window;
    auto* article = window.findChild<QTeskelEdit*>();
    const int width = article->minimumWidth();
    QVERIFY(width > 1);
    // Whatever has moved the panels and the entry meanwhile.
    article->setMinimumWidth(1);
    auto* column = qobject_cast<QBoxLayout*>(window.findChild<TeskelMainWidget*>()->layout());
    QLayout* entryRow = column->takeAt(0)->layout();
    column->addLayout(entryRow);
    window.openFile(path);
    QCOMPARE(article->minimumWidth(), width);
    QCOMPARE(column->itemAt(0)->layout(), entryRow);
}

void TestTeskelMainWindow::documentRequestOpensFile()
{
    const QString path = installEnglish();
    TeskelMainWindow window;
    QVERIFY(QMetaObject::invokeMethod(&window, "setDocument", Q_ARG(QString, path)));
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
}

void TestTeskelMainWindow::menuChoiceOpensFile()
{
    QVERIFY(!installEnglish().isEmpty());
    QVERIFY(!installGerman().isEmpty());
    TeskelMainWindow window;
    auto* menu = window.findChild<QTeskelFileMenu*>();
    QCOMPARE(menu->actions().size(), 2);
    menu->actions().at(1)->trigger();
    QCOMPARE(window.windowTitle(), u"Teskel-Ger2Eng"_s);
}

void TestTeskelMainWindow::unavailableCommandsSayWhy()
{
    TeskelMainWindow window;
    {
        const ModalVisitor visitor(acceptDialog);
        action(window, u"Add/Edit Word"_s)->trigger();
        QCOMPARE(visitor.title(), u"Teskel"_s);
        QCOMPARE(visitor.text(), u"Sorry, this feature is not yet available."_s);
        QCOMPARE(visitor.icon(), QMessageBox::Information);
    }
    const ModalVisitor visitor(acceptDialog);
    action(window, u"Delete current"_s)->trigger();
    QCOMPARE(visitor.title(), u"Teskel"_s);
    QCOMPARE(visitor.text(),
             u"The recomended way to delete lexicon \nfiles is to use the standard \n"
             "uninstalation procedure. Go to the \napplication launcher, select "
             "\"Settings\" \ntab and from there select icon for \nadding/removing "
             "software!"_s);
    QCOMPARE(visitor.icon(), QMessageBox::Information);
}

void TestTeskelMainWindow::cancelledPreferencesChangeNothing()
{
    const QString path = installEnglish();
    QFont font;
    {
        TeskelMainWindow window;
        window.tryOpen();
        const auto* article = window.findChild<QTeskelEdit*>();
        font = article->font();
        QVERIFY(font.pointSize() != 14);
        const ModalVisitor visitor([](QDialog* dialog) {
            auto* preferences = qobject_cast<PreferencesDialog*>(dialog);
            preferences->panelView()->setButton(0);
            preferences->panelHanded()->setButton(1);
            preferences->panelCombo()->setButton(1);
            preferences->panelMenu()->setButton(1);
            preferences->findChild<QPushButton*>(u"btnLarge"_s)->click();
            dialog->reject();
        });
        window.optionsPreferences();
        QCOMPARE(visitor.visits(), 1);
        QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::TopToolBarArea);
        QCOMPARE(article->font(), font);
    }
    const PreferencesData record;
    QCOMPARE(record.getLayout(), PreferencesData::Vertical);
    QCOMPARE(record.getUserHandType(), PreferencesData::LeftHanded);
    QCOMPARE(record.getComboPosition(), PreferencesData::Top);
    QCOMPARE(record.getMenuPosition(), PreferencesData::Top);
    Config config(u"Teskel"_s);
    config.setGroup(path);
    QCOMPARE(config.readNumEntry(u"FontSize"_s), font.pointSize());
}

void TestTeskelMainWindow::acceptedPreferencesAreStoredAndApplied()
{
    {
        TeskelMainWindow window;
        for (const int position : {1, 1, 0, 1}) {
            const ModalVisitor visitor([position](QDialog* dialog) {
                auto* preferences = qobject_cast<PreferencesDialog*>(dialog);
                preferences->panelMenu()->setButton(position);
                preferences->panelView()->setButton(0);
                preferences->panelHanded()->setButton(1);
                preferences->panelCombo()->setButton(1);
                dialog->accept();
            });
            window.optionsPreferences();
            QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()),
                     position == 1 ? Qt::BottomToolBarArea : Qt::TopToolBarArea);
        }
    }
    const PreferencesData record;
    QCOMPARE(record.getLayout(), PreferencesData::Horizontal);
    QCOMPARE(record.getUserHandType(), PreferencesData::RightHanded);
    QCOMPARE(record.getComboPosition(), PreferencesData::Bottom);
    QCOMPARE(record.getMenuPosition(), PreferencesData::Bottom);
}

void TestTeskelMainWindow::acceptedPreferencesKeepFontOfTheOpenDictionary()
{
    const QString path = installEnglish();
    TeskelMainWindow window;
    window.tryOpen();
    QFont large = window.findChild<QTeskelEdit*>()->font();
    large.setPointSize(18);
    window.findChild<TeskelMainWidget*>()->setEditFont(large);
    const ModalVisitor visitor(acceptDialog);
    window.optionsPreferences();
    // Shown as large, and large comes back as 14 points.
    QCOMPARE(window.findChild<QTeskelEdit*>()->font().pointSize(), 14);
    Config config(u"Teskel"_s);
    config.setGroup(path);
    QCOMPARE(config.readNumEntry(u"FontSize"_s), 14);
}

void TestTeskelMainWindow::preferencesShowTheRecord_data()
{
    QTest::addColumn<QList<int>>("ids");
    QTest::newRow("as it comes") << QList<int>{1, 0, 0, 0};
    QTest::newRow("panels one above the other") << QList<int>{0, 0, 0, 0};
    QTest::newRow("right hand") << QList<int>{1, 1, 0, 0};
    QTest::newRow("word entry at the bottom") << QList<int>{1, 0, 1, 0};
    QTest::newRow("tool bar at the bottom") << QList<int>{1, 0, 0, 1};
}

void TestTeskelMainWindow::preferencesShowTheRecord()
{
    QFETCH(const QList<int>, ids);
    {
        PreferencesData record;
        record.setLayout(static_cast<PreferencesData::PanelViewLayout>(ids.at(0)));
        record.setUserHandType(static_cast<PreferencesData::UserHandType>(ids.at(1)));
        record.setComboPosition(static_cast<PreferencesData::Position>(ids.at(2)));
        record.setMenuPosition(static_cast<PreferencesData::Position>(ids.at(3)));
    }
    TeskelMainWindow window;
    QString name;
    QList<int> shown;
    const ModalVisitor visitor([&](QDialog* dialog) {
        auto* preferences = qobject_cast<PreferencesDialog*>(dialog);
        name = dialog->objectName();
        shown = {preferences->panelView()->selectedId(), preferences->panelHanded()->selectedId(),
                 preferences->panelCombo()->selectedId(), preferences->panelMenu()->selectedId()};
        dialog->reject();
    });
    window.optionsPreferences();
    QCOMPARE(name, u"Preferences"_s);
    QCOMPARE(shown, ids);
}

void TestTeskelMainWindow::toolBarAtTheBottomAfterConstruction()
{
    PreferencesData().setMenuPosition(PreferencesData::Bottom);
    const TeskelMainWindow window;
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::BottomToolBarArea);
}

void TestTeskelMainWindow::unknownMenuPositionCountsAsTop()
{
    PreferencesData().setMenuPosition(static_cast<PreferencesData::Position>(7));
    const TeskelMainWindow window;
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::TopToolBarArea);
}

void TestTeskelMainWindow::toggleViewStoresViewType()
{
    {
        const TeskelMainWindow window;
        QAction* toggle = action(window, u"Toggle View"_s);
        QVERIFY(toggle->isChecked());
        toggle->trigger();
        QVERIFY(!toggle->isChecked());
    }
    QCOMPARE(PreferencesData().getViewType(), PreferencesData::ToggleViewOff);
}

void TestTeskelMainWindow::toggleViewStartsAsStored()
{
    PreferencesData().setViewType(PreferencesData::ToggleViewOff);
    const TeskelMainWindow window;
    QVERIFY(!action(window, u"Toggle View"_s)->isChecked());
}

void TestTeskelMainWindow::crossLookupWithoutDictionaryDoesNothing()
{
    TeskelMainWindow window;
    selectInArticle(window, u"lexicons"_s);
    const ModalVisitor visitor(acceptDialog);
    window.crossLookup();
    QCOMPARE(visitor.visits(), 0);
    QCOMPARE(window.findChild<QTeskelComboBox*>()->currentText(), QString());
}

void TestTeskelMainWindow::crossLookupWithoutReverseStaysInDictionary()
{
    const QString path = install(u"Eng2Ger.PDB"_s, {{"ant", "see tree"}, {"tree", "Baum"}});
    TeskelMainWindow window;
    window.openFile(path);
    auto* entry = window.findChild<QTeskelComboBox*>();
    entry->lineEdit()->setText(u"ant"_s);
    selectInArticle(window, u"tree"_s);
    window.crossLookup();
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    // With the notification connected: the word is looked up at once, in the same dictionary.
    QCOMPARE(entry->currentText(), u"tree"_s);
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(u"Baum"_s));
}

void TestTeskelMainWindow::crossLookupOpensTheReverse()
{
    const QString english =
        install(u"Eng2Ger.PDB"_s, {{"Haus", "a loan word"}, {"house", "1. Haus"}});
    QVERIFY(!installGerman().isEmpty());
    TeskelMainWindow window;
    window.openFile(english);
    window.findChild<QTeskelComboBox*>()->lineEdit()->setText(u"house"_s);
    selectInArticle(window, u"Haus"_s);
    window.crossLookup();
    QCOMPARE(window.windowTitle(), u"Teskel-Ger2Eng"_s);
    QCOMPARE(window.findChild<QTeskelComboBox*>()->currentText(), u"Haus"_s);
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(u"house"_s));
}

void TestTeskelMainWindow::crossLookupLooksNothingUpBeforeTheReverseIsOpen()
{
    // Known where it was selected, but not where it is looked up.
    const QString english = install(u"Eng2Ger.PDB"_s, {{"gift", "Geschenk"}, {"present", "gift"}});
    QVERIFY(!install(u"Ger2Eng.PDB"_s, {{"Haus", "house"}}).isEmpty());
    TeskelMainWindow window;
    window.openFile(english);
    auto* entry = window.findChild<QTeskelComboBox*>();
    entry->lineEdit()->setText(u"present"_s);
    selectInArticle(window, u"gift"_s);
    window.crossLookup();
    QCOMPARE(window.windowTitle(), u"Teskel-Ger2Eng"_s);
    QCOMPARE(entry->currentText(), u"gift"_s);
    QCOMPARE(entry->count(), 1);
    QCOMPARE(entry->text(0), u"present"_s);
}

void TestTeskelMainWindow::crossLookupWithoutSelectionOpensNothing()
{
    const QString english = installEnglish();
    QVERIFY(!installGerman().isEmpty());
    TeskelMainWindow window;
    window.openFile(english);
    const ModalVisitor visitor(acceptDialog);
    window.crossLookup();
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.text(), u"The cross-lookup button will only \noperate when there "
                             "is a word \nselected in the article field."_s);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
}

void TestTeskelMainWindow::commandsReachTheLookupView()
{
    const QString path = installEnglish();
    TeskelMainWindow window;
    window.openFile(path);
    auto* entry = window.findChild<QTeskelComboBox*>();
    action(window, u"Random Word"_s)->trigger();
    QVERIFY(!entry->currentText().isEmpty());

    entry->lineEdit()->setText(u"house"_s);
    action(window, u"Copy"_s)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), u"house"_s);
    action(window, u"Copy translation"_s)->trigger();
    QVERIFY(QApplication::clipboard()->text().startsWith(u"<p><b>"_s));
    QApplication::clipboard()->setText(u"tree"_s);
    action(window, u"Paste"_s)->trigger();
    QCOMPARE(entry->currentText(), u"tree"_s);
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(u"Baum"_s));
}

void TestTeskelMainWindow::aboutIsShownAndClosed()
{
    TeskelMainWindow window;
    QString name;
    const ModalVisitor visitor([&name](QDialog* dialog) {
        name = dialog->objectName();
        dialog->reject();
    });
    action(window, u"About ..."_s)->trigger();
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.title(), u"About"_s);
    QCOMPARE(name, u"About"_s);
}

void TestTeskelMainWindow::settingsAreSavedWhenTheWindowDies()
{
    const QString path = installEnglish();
    {
        TeskelMainWindow window;
        window.openFile(path);
        window.findChild<QTeskelComboBox*>()->lineEdit()->setText(u"house"_s);
    }
    Config config(u"Teskel"_s);
    config.setGroup(u"ViewPreferences"_s);
    QCOMPARE(config.readEntry(u"LastOpenFile"_s), path);
    config.setGroup(u"MRU List"_s);
    QCOMPARE(config.readEntry(u"List0"_s), u"house"_s);
    config.setGroup(path);
    QVERIFY(config.hasKey(u"FontName"_s));
}

QTEST_MAIN(TestTeskelMainWindow)
#include "test_teskelmainwindow.moc"
