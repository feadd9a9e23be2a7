// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"

#include "files/qteskelfilemenu.h"
#include "lookup/teskelmainwidget.h"
#include "platform/config.h"
#include "platform/toolbar/qpetoolbar.h"
#include "platform/resource.h"
#include "platform/storage/storageinfo.h"
#include "widgets/buttongroupbox.h"
#include "settings/preferencesdialog.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"
#include "widgets/qteskelcombobox.h"
#include "widgets/article/qteskeledit.h"

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
        return QStringLiteral("\u00E4 ") + QString::fromUtf8(text);
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
        QRegularExpression(QStringLiteral("^(?!This plugin does not support|Cannot open file )")));
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(_home->isValid());
    // No card of the machine that runs the test.
    StorageRoots none;
    none.mountInfo = _home->filePath(QStringLiteral("mountinfo"));
    none.sysfs = _home->filePath(QStringLiteral("sys"));
    StorageInfo::setRoots(none);
    QVERIFY(QDir(_home->path()).mkpath(QStringLiteral("teskel")));
    qputenv("QPEDIR", QFile::encodeName(_home->path()));
    qputenv("HOME", QFile::encodeName(_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home->filePath(QStringLiteral("config"))));
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
    const QString path = _home->filePath(QStringLiteral("teskel/") + name);
    DictionaryWriter writer;
    writer.addEntries(entries, 4);
    return writer.write(path) ? path : QString();
}

QString TestTeskelMainWindow::installEnglish()
{
    return install(QStringLiteral("Eng2Ger.PDB"),
                   {{"ant", "Ameise"}, {"house", "1. Haus"}, {"tree", "Baum"}});
}

QString TestTeskelMainWindow::installGerman()
{
    return install(QStringLiteral("Ger2Eng.PDB"),
                   {{"Ameise", "ant"}, {"Baum", "tree"}, {"Haus", "house"}});
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
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Teskel"));
    QCOMPARE(visitor.visits(), 0);
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::TopToolBarArea);
}

void TestTeskelMainWindow::hasItsSlotsInOrder()
{
    const QMetaObject& meta = TeskelMainWindow::staticMetaObject;
    QCOMPARE(meta.className(), "TeskelMainWindow");
    QStringList slots_;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        slots_.append(QString::fromLatin1(meta.method(i).methodSignature()));
    const QStringList expected{QStringLiteral("openFile(QString)"),
                               QStringLiteral("setCaption(QString)"),
                               QStringLiteral("lexiconAddEditWord()"),
                               QStringLiteral("lexiconRandomWord()"),
                               QStringLiteral("lexiconDeleteCurrent()"),
                               QStringLiteral("editCopy()"),
                               QStringLiteral("editCopyTranslation()"),
                               QStringLiteral("editPaste()"),
                               QStringLiteral("optionsPreferences()"),
                               QStringLiteral("optionsAbout()"),
                               QStringLiteral("toggleView(bool)"),
                               QStringLiteral("setDocument(QString)"),
                               QStringLiteral("fileSelected(QTeskelFileInfo)"),
                               QStringLiteral("crossLookup()")};
    QCOMPARE(slots_, expected);
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
            names.append(QStringLiteral("menus"));
        else
            names.append(widget->toolTip());
        const auto* button = qobject_cast<const QToolButton*>(widget);
        QVERIFY(!button || !button->icon().isNull());
    }
    QCOMPARE(names,
             (QStringList{QStringLiteral("menus"), QStringLiteral("Add/Edit Word"),
                          QStringLiteral("Select a dictionary"), QStringLiteral("Cross lookup"),
                          QStringLiteral("Toggle View"), QStringLiteral("Preferences ...")}));
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
    const auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_qs);
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
        QVERIFY(menus->fontMetrics().horizontalAdvance(u"LexiconEdit"_qs) > 120);
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
    const auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_qs);
    const auto* moreMenus = menus->findChild<QToolButton*>(u"qt_menubar_ext_button"_qs);
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
    QTest::newRow("add") << u"Add/Edit Word"_qs << u"teskel-custom-word"_qs;
    QTest::newRow("random") << u"Random Word"_qs << QString();
    QTest::newRow("delete") << u"Delete current"_qs << QString();
    QTest::newRow("copy") << u"Copy"_qs << u"copy"_qs;
    QTest::newRow("copy translation") << u"Copy translation"_qs << QString();
    QTest::newRow("paste") << u"Paste"_qs << u"paste"_qs;
    QTest::newRow("preferences") << u"Preferences ..."_qs << u"teskel-preferences"_qs;
    QTest::newRow("about") << u"About ..."_qs << QString();
    QTest::newRow("open") << u"Select a dictionary"_qs << u"teskel-open"_qs;
    QTest::newRow("cross lookup") << u"Cross lookup"_qs << u"teskel-crosslookup"_qs;
    QTest::newRow("toggle view") << u"Toggle View"_qs << u"teskel-toggleview"_qs;
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
        window.findChild<QPEToolBar*>()->findChild<QToolButton*>(u"qt_toolbar_ext_button"_qs);
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
    const QString umlaut = QStringLiteral("\u00E4");
    TeskelMainWindow window(nullptr, umlaut.toUtf8().constData());
    QCOMPARE(window.objectName(), umlaut);
    QString name;
    const ModalVisitor visitor([&name](QDialog* dialog) {
        name = dialog->objectName();
        dialog->reject();
    });
    window.optionsPreferences();
    QCOMPARE(name, umlaut + QStringLiteral(" Preferences"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

void TestTeskelMainWindow::captionShowsTheNameAsItIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("ordinary") << QStringLiteral("Eng2Ger");
    QTest::newRow("the mark of a changed document") << QStringLiteral("Eng[*]Ger");
    QTest::newRow("the mark twice") << QStringLiteral("[*][*]");
    QTest::newRow("brackets") << QStringLiteral("[[*]] [] *");
}

void TestTeskelMainWindow::captionShowsTheNameAsItIs()
{
    QFETCH(const QString, name);
    TeskelMainWindow window;
    window.show();
    window.setCaption(name);
    QCOMPARE(window.windowHandle()->title(), QStringLiteral("Teskel-") + name);
}

void TestTeskelMainWindow::captionShowsNoControlCharacters()
{
    TeskelMainWindow window;
    window.setCaption(u"Eng\n2\tGer\u2028\u202Ex\u007F"_qs);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng 2 Ger  x "_qs);
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
            texts.append(entry->isSeparator() ? QStringLiteral("-") : entry->text());
    }
    QCOMPARE(texts, (QStringList{QStringLiteral("Lexicon:"), QStringLiteral("Add/Edit Word"),
                                 QStringLiteral("Random Word"), QStringLiteral("Delete current"),
                                 QStringLiteral("-"), QStringLiteral("About ..."),
                                 QStringLiteral("Edit:"), QStringLiteral("Copy"),
                                 QStringLiteral("Copy translation"), QStringLiteral("Paste"),
                                 QStringLiteral("-"), QStringLiteral("Preferences ...")}));
}

void TestTeskelMainWindow::skipsLastFileThatIsGone()
{
    QVERIFY(!installEnglish().isEmpty());
    {
        PreferencesData record;
        record.setLastOpenFile(_home->filePath(QStringLiteral("gone.PDB")));
    }
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
    QCOMPARE(visitor.visits(), 0);
}

void TestTeskelMainWindow::opensLastFileBeforeTheFirstInstalled()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString german = installGerman();
    {
        PreferencesData record;
        record.setLastOpenFile(german);
    }
    TeskelMainWindow window;
    window.tryOpen();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Ger2Eng"));
}

void TestTeskelMainWindow::skipsInstalledFilesThatDoNotOpen()
{
    QVERIFY(teskel::test::writeFile(_home->filePath(QStringLiteral("teskel/A.PDB")), "nothing"));
    QVERIFY(!installEnglish().isEmpty());
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
    QCOMPARE(visitor.visits(), 0);
}

void TestTeskelMainWindow::openedFileStaysOpenAfterTryOpen()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString german = installGerman();
    TeskelMainWindow window;
    window.openFile(german);
    window.tryOpen();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Ger2Eng"));
}

void TestTeskelMainWindow::invalidFileIsReportedAndStartContinues()
{
    QVERIFY(!installEnglish().isEmpty());
    const QString bad = _home->filePath(QStringLiteral("bad.PDB"));
    QVERIFY(teskel::test::writeFile(bad, QByteArray()));
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(bad);
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.title(), QStringLiteral("Teskel"));
    QCOMPARE(visitor.text(), QStringLiteral("File\n%1\nis not a valid dictionary").arg(bad));
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Teskel"));
    window.tryOpen();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
}

void TestTeskelMainWindow::relativePathIsStoredAbsolute()
{
    const QString path = installEnglish();
    QVERIFY(QDir::setCurrent(_home->path()));
    {
        TeskelMainWindow window;
        window.openFile(QStringLiteral("teskel/Eng2Ger.PDB"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
    }
    QCOMPARE(QFileInfo(PreferencesData().getLastOpenFile()).canonicalFilePath(),
             QFileInfo(path).canonicalFilePath());
    QVERIFY(QFileInfo(PreferencesData().getLastOpenFile()).isAbsolute());
    Config config(QStringLiteral("Teskel"));
    config.setGroup(PreferencesData().getLastOpenFile());
    QVERIFY(config.hasKey(QStringLiteral("FontName")));
    config.setGroup(QStringLiteral("teskel/Eng2Ger.PDB"));
    QVERIFY(!config.hasKey(QStringLiteral("FontName")));
}

void TestTeskelMainWindow::relativePathIsReportedAsGiven()
{
    QVERIFY(QDir::setCurrent(_home->path()));
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(QStringLiteral("gone.PDB"));
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.text(), QStringLiteral("File\ngone.PDB\nis not a valid dictionary"));
}

void TestTeskelMainWindow::relativePathThatFailsIsTriedOnce()
{
    QVERIFY(QDir::setCurrent(_home->path()));
    TeskelMainWindow window;
    const teskel::test::WarningCapture warnings;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(QStringLiteral("gone.PDB"));
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(warnings.count(QStringLiteral("gone.PDB")), 1);
}

void TestTeskelMainWindow::messageShowsNoControlCharacters()
{
    TeskelMainWindow window;
    const ModalVisitor visitor(acceptDialog);
    window.openFile(_home->filePath(u"a\nis a valid\u2029dictionary\tb.PDB"_qs));
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(
        visitor.text(),
        u"File\n%1/a is a valid dictionary b.PDB\nis not a valid dictionary"_qs.arg(_home->path()));
}

void TestTeskelMainWindow::fileWithControlCharactersInItsNameIsOpened()
{
    const QString path = install(u"Eng\n2\tGer\u0001.PDB"_qs, {{"ant", "Ameise"}});
    QVERIFY(!path.isEmpty());
    TeskelMainWindow window;
    const auto entries = window.findChild<QTeskelFileMenu*>()->actions();
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first()->text(), u"Eng 2 Ger "_qs);
    entries.first()->trigger();
    QCOMPARE(window.findChild<TeskelMainWidget*>()->getDictionaryFileName(), path);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng 2 Ger "_qs);
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
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
}

void TestTeskelMainWindow::menuChoiceOpensFile()
{
    QVERIFY(!installEnglish().isEmpty());
    QVERIFY(!installGerman().isEmpty());
    TeskelMainWindow window;
    auto* menu = window.findChild<QTeskelFileMenu*>();
    QCOMPARE(menu->actions().size(), 2);
    menu->actions().at(1)->trigger();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Ger2Eng"));
}

void TestTeskelMainWindow::unavailableCommandsSayWhy()
{
    TeskelMainWindow window;
    {
        const ModalVisitor visitor(acceptDialog);
        action(window, QStringLiteral("Add/Edit Word"))->trigger();
        QCOMPARE(visitor.title(), QStringLiteral("Teskel"));
        QCOMPARE(visitor.text(), QStringLiteral("Sorry, this feature is not yet available."));
        QCOMPARE(visitor.icon(), QMessageBox::Information);
    }
    const ModalVisitor visitor(acceptDialog);
    action(window, QStringLiteral("Delete current"))->trigger();
    QCOMPARE(visitor.title(), QStringLiteral("Teskel"));
    QCOMPARE(visitor.text(),
             QStringLiteral("The recomended way to delete lexicon \nfiles is to use the standard \n"
                            "uninstalation procedure. Go to the \napplication launcher, select "
                            "\"Settings\" \ntab and from there select icon for \nadding/removing "
                            "software!"));
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
            preferences->findChild<QPushButton*>(u"btnLarge"_qs)->click();
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
    Config config(QStringLiteral("Teskel"));
    config.setGroup(path);
    QCOMPARE(config.readNumEntry(QStringLiteral("FontSize")), font.pointSize());
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
    Config config(QStringLiteral("Teskel"));
    config.setGroup(path);
    QCOMPARE(config.readNumEntry(QStringLiteral("FontSize")), 14);
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
    QCOMPARE(name, QStringLiteral("Preferences"));
    QCOMPARE(shown, ids);
}

void TestTeskelMainWindow::toolBarAtTheBottomAfterConstruction()
{
    {
        PreferencesData record;
        record.setMenuPosition(PreferencesData::Bottom);
    }
    const TeskelMainWindow window;
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::BottomToolBarArea);
}

void TestTeskelMainWindow::unknownMenuPositionCountsAsTop()
{
    {
        PreferencesData record;
        record.setMenuPosition(static_cast<PreferencesData::Position>(7));
    }
    const TeskelMainWindow window;
    QCOMPARE(window.toolBarArea(window.findChild<QPEToolBar*>()), Qt::TopToolBarArea);
}

void TestTeskelMainWindow::toggleViewStoresViewType()
{
    {
        const TeskelMainWindow window;
        QAction* toggle = action(window, QStringLiteral("Toggle View"));
        QVERIFY(toggle->isChecked());
        toggle->trigger();
        QVERIFY(!toggle->isChecked());
    }
    QCOMPARE(PreferencesData().getViewType(), PreferencesData::ToggleViewOff);
}

void TestTeskelMainWindow::toggleViewStartsAsStored()
{
    {
        PreferencesData record;
        record.setViewType(PreferencesData::ToggleViewOff);
    }
    const TeskelMainWindow window;
    QVERIFY(!action(window, QStringLiteral("Toggle View"))->isChecked());
}

void TestTeskelMainWindow::crossLookupWithoutDictionaryDoesNothing()
{
    TeskelMainWindow window;
    selectInArticle(window, QStringLiteral("lexicons"));
    const ModalVisitor visitor(acceptDialog);
    window.crossLookup();
    QCOMPARE(visitor.visits(), 0);
    QCOMPARE(window.findChild<QTeskelComboBox*>()->currentText(), QString());
}

void TestTeskelMainWindow::crossLookupWithoutReverseStaysInDictionary()
{
    const QString path =
        install(QStringLiteral("Eng2Ger.PDB"), {{"ant", "see tree"}, {"tree", "Baum"}});
    TeskelMainWindow window;
    window.openFile(path);
    auto* entry = window.findChild<QTeskelComboBox*>();
    entry->lineEdit()->setText(QStringLiteral("ant"));
    selectInArticle(window, QStringLiteral("tree"));
    window.crossLookup();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
    // With the notification connected: the word is looked up at once, in the same dictionary.
    QCOMPARE(entry->currentText(), QStringLiteral("tree"));
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(QStringLiteral("Baum")));
}

void TestTeskelMainWindow::crossLookupOpensTheReverse()
{
    const QString english =
        install(QStringLiteral("Eng2Ger.PDB"), {{"Haus", "a loan word"}, {"house", "1. Haus"}});
    QVERIFY(!installGerman().isEmpty());
    TeskelMainWindow window;
    window.openFile(english);
    window.findChild<QTeskelComboBox*>()->lineEdit()->setText(QStringLiteral("house"));
    selectInArticle(window, QStringLiteral("Haus"));
    window.crossLookup();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Ger2Eng"));
    QCOMPARE(window.findChild<QTeskelComboBox*>()->currentText(), QStringLiteral("Haus"));
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(QStringLiteral("house")));
}

void TestTeskelMainWindow::crossLookupLooksNothingUpBeforeTheReverseIsOpen()
{
    // Known where it was selected, but not where it is looked up.
    const QString english =
        install(QStringLiteral("Eng2Ger.PDB"), {{"gift", "Geschenk"}, {"present", "gift"}});
    QVERIFY(!install(QStringLiteral("Ger2Eng.PDB"), {{"Haus", "house"}}).isEmpty());
    TeskelMainWindow window;
    window.openFile(english);
    auto* entry = window.findChild<QTeskelComboBox*>();
    entry->lineEdit()->setText(QStringLiteral("present"));
    selectInArticle(window, QStringLiteral("gift"));
    window.crossLookup();
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Ger2Eng"));
    QCOMPARE(entry->currentText(), QStringLiteral("gift"));
    QCOMPARE(entry->count(), 1);
    QCOMPARE(entry->text(0), QStringLiteral("present"));
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
    QCOMPARE(visitor.text(),
             QStringLiteral("The cross-lookup button will only \noperate when there "
                            "is a word \nselected in the article field."));
    QCOMPARE(window.windowTitle(), QStringLiteral("Teskel-Eng2Ger"));
}

void TestTeskelMainWindow::commandsReachTheLookupView()
{
    const QString path = installEnglish();
    TeskelMainWindow window;
    window.openFile(path);
    auto* entry = window.findChild<QTeskelComboBox*>();
    action(window, QStringLiteral("Random Word"))->trigger();
    QVERIFY(!entry->currentText().isEmpty());

    entry->lineEdit()->setText(QStringLiteral("house"));
    action(window, QStringLiteral("Copy"))->trigger();
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("house"));
    action(window, QStringLiteral("Copy translation"))->trigger();
    QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("<p><b>")));
    QApplication::clipboard()->setText(QStringLiteral("tree"));
    action(window, QStringLiteral("Paste"))->trigger();
    QCOMPARE(entry->currentText(), QStringLiteral("tree"));
    QVERIFY(window.findChild<QTeskelEdit*>()->text().contains(QStringLiteral("Baum")));
}

void TestTeskelMainWindow::aboutIsShownAndClosed()
{
    TeskelMainWindow window;
    QString name;
    const ModalVisitor visitor([&name](QDialog* dialog) {
        name = dialog->objectName();
        dialog->reject();
    });
    action(window, QStringLiteral("About ..."))->trigger();
    QCOMPARE(visitor.visits(), 1);
    QCOMPARE(visitor.title(), QStringLiteral("About"));
    QCOMPARE(name, QStringLiteral("About"));
}

void TestTeskelMainWindow::settingsAreSavedWhenTheWindowDies()
{
    const QString path = installEnglish();
    {
        TeskelMainWindow window;
        window.openFile(path);
        window.findChild<QTeskelComboBox*>()->lineEdit()->setText(QStringLiteral("house"));
    }
    Config config(QStringLiteral("Teskel"));
    config.setGroup(QStringLiteral("ViewPreferences"));
    QCOMPARE(config.readEntry(QStringLiteral("LastOpenFile")), path);
    config.setGroup(QStringLiteral("MRU List"));
    QCOMPARE(config.readEntry(QStringLiteral("List0")), QStringLiteral("house"));
    config.setGroup(path);
    QVERIFY(config.hasKey(QStringLiteral("FontName")));
}

QTEST_MAIN(TestTeskelMainWindow)
#include "test_teskelmainwindow.moc"
