// SPDX-License-Identifier: MIT
#include "tests/lookup/lookupbench.h"
#include "tests/lookup/messagewatch.h"
#include "tests/support/warningcapture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProxyStyle>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace teskel::test;

namespace
{

/// A style whose margins are as wide as a whole message box.
class WideMargins : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        return metric == PM_LayoutLeftMargin ? 600
                                             : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

class TestTeskelMainWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void slotsStandInOrderAndThereAreNoSignals();
    void startsWithTheInitialTextAndAnEmptyList();
    void startsWithTheHistoryInOrderAndShowsItsFirstWord();
    void onlyTheEntryTakesTheKeyboard();
    void entryFollowsTheHistoryRules();
    void defaultFontIsTheArticlesFontAtStart();
    void defaultFontIsThatOfTheStyleOrPlatform_data();
    void defaultFontIsThatOfTheStyleOrPlatform();
    void storedHistoryOutsideLatin1LeavesNoEmptyItem();

    void openingShowsDescriptionAndTheFirstTwentyWords();
    void openingASmallDictionaryShowsAsManyRowsAsWords();
    void openingADictionaryWithoutWordsShowsItsDescription();
    void openingLooksUpTheEntrysTextAtOnce();
    void openingLooksUpTheFirstWordOfTheHistory();
    void openingAnotherDictionaryRefillsEverything();
    void openingEnablesTheEntry();
    void openingRecordsTheLastOpenFile();
    void openingUnderAnyDirectoryName();
    void descriptionIsShownAsItStands();
    void descriptionOf512BytesIsNotShown();
    void failureShowsTheMessageWithThePathAsPlainText();
    void messageShowsWithoutRoomForItsText();
    void quietFailureShowsNoMessage();
    void failureChangesNothing_data();
    void failureChangesNothing();
    void fillControlsWithoutADictionaryWarns();

    void namesOfTheOpenDictionary();
    void namesWithoutADictionaryAreEmpty();
    void fontOfADictionaryIsAppliedWhenItOpens();
    void fontWithoutADictionaryStays();
    void destructionStoresTheFontOfTheOpenFile();
    void destructionWithoutADictionaryStoresNothing();
    void navigationEventsSwitchTheHistory();
    void foreignEventsAreLeftAlone();
    void dyingChildrenDoNotReachTheWidget();
};

void TestTeskelMainWidget::init()
{
    failOnUnexpectedWarnings();
}

void TestTeskelMainWidget::slotsStandInOrderAndThereAreNoSignals()
{
    const QMetaObject& meta = TeskelMainWidget::staticMetaObject;
    QByteArrayList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
        methods.append(meta.method(index).methodSignature());
    }
    QCOMPARE(methods, (QByteArrayList{"listBoxSelectionChanged(QTeskelListBoxItem*)",
                                      "comboBoxTextChanged(QString)", "comboActivated(int)"}));
}

void TestTeskelMainWidget::startsWithTheInitialTextAndAnEmptyList()
{
    LookupBench bench;
    const QString text = bench.article().text();
    QVERIFY(text.startsWith(
        u"<font color=\"#FF0000\">There are no dictionary lexicons installed for Teskel Dictionary "
        "Reader. <p>If you have only installed the shell program, then be advised you must also "
        "install some reference files (lexicons) that the program can take advantage of. "
        "</p></font><font color=\"#0000FF\"><p>"_s));
    QVERIFY(text.endsWith(u"</p></font>"_s));
    QCOMPARE(bench.list().count(), 0);
    QVERIFY(bench.entry().isEnabled());
    QCOMPARE(bench.widget().objectName(), u"TeskelMainWidget"_s);
}

void TestTeskelMainWidget::startsWithTheHistoryInOrderAndShowsItsFirstWord()
{
    LookupBench bench([](PreferencesData& preferences) {
        preferences.addToMRUList(u"house"_s);
        preferences.addToMRUList(u"B\u00E4r"_s);
    });
    QCOMPARE(bench.history(), (QStringList{u"house"_s, u"B\u00E4r"_s}));
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.storedHistory(), bench.history());
}

void TestTeskelMainWidget::onlyTheEntryTakesTheKeyboard()
{
    LookupBench bench;
    QCOMPARE(bench.article().focusPolicy(), Qt::NoFocus);
    QCOMPARE(bench.list().focusPolicy(), Qt::NoFocus);
    QVERIFY(bench.entry().focusPolicy() & Qt::TabFocus);
    bench.widget().show();
    QVERIFY(QTest::qWaitForWindowActive(&bench.widget()));
    bench.open(everydayEntries());
    QTRY_VERIFY(bench.entry().hasFocus());
    QTest::mouseClick(bench.list().viewport(), Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(bench.entry().hasFocus());
    QTest::mouseClick(bench.article().viewport(), Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(bench.entry().hasFocus());
}

void TestTeskelMainWidget::entryFollowsTheHistoryRules()
{
    LookupBench bench;
    QVERIFY(bench.entry().isEditable());
    QCOMPARE(bench.entry().insertPolicy(), QComboBox::InsertAtTop);
    QCOMPARE(bench.entry().maxCount(), 6);
}

void TestTeskelMainWidget::defaultFontIsTheArticlesFontAtStart()
{
    LookupBench bench;
    const QFont font = bench.preferences().getFont(u"/nowhere.PDB"_s);
    QCOMPARE(font.family(), bench.article().font().family());
    QCOMPARE(font.pointSize(), bench.article().font().pointSize());
}

void TestTeskelMainWidget::defaultFontIsThatOfTheStyleOrPlatform_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::newRow("platform") << QString();
    QTest::newRow("style sheet") << u"QTextEdit { font-size: 29pt }"_s;
}

void TestTeskelMainWidget::defaultFontIsThatOfTheStyleOrPlatform()
{
    QFETCH(QString, styleSheet);
    const auto restore = qScopeGuard([before = QApplication::font("QTextEdit")] {
        qApp->setStyleSheet(QString());
        QApplication::setFont(before, "QTextEdit");
    });
    if (styleSheet.isEmpty()) {
        QFont font = QApplication::font();
        font.setPointSize(29);
        QApplication::setFont(font, "QTextEdit");
    } else {
        qApp->setStyleSheet(styleSheet);
    }
    LookupBench bench;
    QCOMPARE(bench.preferences().getFont(u"/nowhere.PDB"_s).pointSize(), 29);
    bench.open(everydayEntries());
    bench.widget().show();
    QCOMPARE(bench.article().font().pointSize(), 29);
    QCOMPARE(bench.article().document()->defaultFont().pointSize(), 29);
}

void TestTeskelMainWidget::storedHistoryOutsideLatin1LeavesNoEmptyItem()
{
    LookupBench bench;
    bench.stop();
    QVERIFY(QDir().mkpath(bench.path(u"config/teskel"_s)));
    QFile file(bench.path(u"config/teskel/Teskel.conf"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(u"[MRU List]\nList0 = \u0436\u0443\u043A\nList1 = ant\n"_s.toUtf8());
    file.close();
    bench.start();
    QCOMPARE(bench.history(), QStringList{u"ant"_s});
    QCOMPARE(bench.typed(), u"ant"_s);
}

void TestTeskelMainWidget::openingShowsDescriptionAndTheFirstTwentyWords()
{
    LookupBench bench;
    bench.open(numberedEntries(50));
    QCOMPARE(bench.article().text(), u"A dictionary made for a test"_s);
    QCOMPARE(bench.rows(), numberedWords(0, 19));
    QCOMPARE(bench.list().currentItem(), -1);
}

void TestTeskelMainWidget::openingASmallDictionaryShowsAsManyRowsAsWords()
{
    LookupBench bench;
    bench.open(numberedEntries(5), 2);
    QCOMPARE(bench.rows(), numberedWords(0, 4));
    QTest::keyClick(&bench.entry(), Qt::Key_End);
    QCOMPARE(bench.rows(), numberedWords(0, 4));
    QCOMPARE(bench.currentWord(), u"w000"_s); // the first key only finds a current row
    QTest::keyClick(&bench.entry(), Qt::Key_End);
    QCOMPARE(bench.rows(), numberedWords(0, 4));
    QCOMPARE(bench.currentWord(), u"w004"_s);
}

void TestTeskelMainWidget::openingADictionaryWithoutWordsShowsItsDescription()
{
    LookupBench bench;
    bench.open({});
    QCOMPARE(bench.article().text(), u"A dictionary made for a test"_s);
    QCOMPARE(bench.list().count(), 0);
    bench.type(u"house"_s);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_PageDown})
        QTest::keyClick(&bench.entry(), key);
    emit bench.list().verticalScrollBar()->nextLine();
    emit bench.list().verticalScrollBar()->prevLine();
    bench.widget().randomWord();
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.article().text(), QString());
}

void TestTeskelMainWidget::openingLooksUpTheEntrysTextAtOnce()
{
    LookupBench bench;
    bench.type(u"houseboat"_s);
    bench.open(everydayEntries());
    QCOMPARE(bench.typed(), u"houseboat"_s);
    QCOMPARE(bench.currentWord(), u"houseboat"_s);
    QCOMPARE(bench.articleText(), u"houseboat\nHausboot"_s);
}

void TestTeskelMainWidget::openingLooksUpTheFirstWordOfTheHistory()
{
    EverydayBench bench([](PreferencesData& preferences) { preferences.addToMRUList(u"home"_s); });
    QCOMPARE(bench.currentWord(), u"home"_s);
    QVERIFY(bench.article().text().startsWith(u"<p><b>home</b></p><p>"_s));
}

void TestTeskelMainWidget::openingAnotherDictionaryRefillsEverything()
{
    EverydayBench bench;
    bench.type(u"w030"_s);
    QCOMPARE(bench.rows().first(), u"w030"_s);
    const QString other = bench.write(u"Other.PDB"_s, {{"ape", "Affe"}, {"bee", "Biene"}});
    QVERIFY(bench.widget().fileOpen(other, true));
    QCOMPARE(bench.rows(), (QStringList{u"ape"_s, u"bee"_s}));
    QCOMPARE(bench.list().currentItem(), -1);
    QCOMPARE(bench.typed(), u"w030"_s);
    QCOMPARE(bench.article().text(), QString()); // looked up and not found
    QCOMPARE(bench.widget().getDictionaryName(), u"Other"_s);
}

void TestTeskelMainWidget::openingEnablesTheEntry()
{
    LookupBench bench;
    bench.entry().setEnabled(false);
    bench.open(everydayEntries());
    QVERIFY(bench.entry().isEnabled());
}

void TestTeskelMainWidget::openingRecordsTheLastOpenFile()
{
    EverydayBench bench;
    QCOMPARE(bench.preferences().getLastOpenFile(), bench.path(u"Words.PDB"_s));
}

void TestTeskelMainWidget::openingUnderAnyDirectoryName()
{
    LookupBench bench;
    QVERIFY(QDir(bench.path(QString())).mkdir(u"\u0441\u043B\u043E\u0432\u0430\u0440\u044C"_s));
    const QString path =
        bench.write(u"\u0441\u043B\u043E\u0432\u0430\u0440\u044C/A.PDB"_s, everydayEntries());
    QVERIFY(bench.widget().fileOpen(path, true));
    QCOMPARE(bench.widget().getDictionaryFileName(), path);
    QCOMPARE(bench.rows().first(), u"ant"_s);
}

void TestTeskelMainWidget::descriptionIsShownAsItStands()
{
    LookupBench bench;
    const QString path = bench.path(u"Described.PDB"_s);
    QVERIFY(DictionaryWriter()
                .setDescription("1. <i>M\xFCnchen</i>\n2 cups")
                .addEntries(everydayEntries(), 7)
                .write(path));
    QVERIFY(bench.widget().fileOpen(path, true));
    QCOMPARE(bench.article().text(), u"1. <i>M\u00FCnchen</i>\n2 cups"_s);
    QCOMPARE(bench.articleText(), u"1. M\u00FCnchen 2 cups"_s);
}

void TestTeskelMainWidget::descriptionOf512BytesIsNotShown()
{
    LookupBench bench;
    for (const int length : {511, 512}) {
        const QString path = bench.path(u"Described.PDB"_s);
        QVERIFY(DictionaryWriter()
                    .setDescription(QByteArray(length, 'x'))
                    .addEntries(everydayEntries(), 7)
                    .write(path));
        QVERIFY(bench.widget().fileOpen(path, true));
        QCOMPARE(bench.article().text(), length < 512 ? QString(511, u'x') : QString());
    }
}

void TestTeskelMainWidget::failureShowsTheMessageWithThePathAsPlainText()
{
    LookupBench bench;
    MessageWatch watch;
    const QString path = u"/nowhere/<b>%1</b>&amp;.PDB"_s;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot open file "_s));
    QVERIFY(!bench.widget().fileOpen(path, false));
    QCOMPARE(watch.messages.size(), 1);
    const auto message = watch.messages.first();
    QCOMPARE(message.caption, u"Teskel"_s);
    QCOMPARE(message.text, u"File\n/nowhere/<b>%1</b>&amp;.PDB\nis not a valid dictionary"_s);
    QCOMPARE(message.format, Qt::PlainText);
    QCOMPARE(message.icon, QMessageBox::Critical);
    QCOMPARE(message.buttons, 1);
}

void TestTeskelMainWidget::messageShowsWithoutRoomForItsText()
{
    LookupBench bench;
    const MessageWatch watch;
    const QString before = QApplication::style()->name();
    QApplication::setStyle(new WideMargins(u"Fusion"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot open file "_s));
    bench.widget().fileOpen(u"/nowhere.PDB"_s, false);
    QApplication::setStyle(before);
    QCOMPARE(watch.messages.size(), 1);
}

void TestTeskelMainWidget::quietFailureShowsNoMessage()
{
    LookupBench bench;
    const MessageWatch watch;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Cannot open file "_s));
    QVERIFY(!bench.widget().fileOpen(u"/nowhere.PDB"_s, true));
    QCoreApplication::processEvents();
    QVERIFY(watch.messages.isEmpty());
}

void TestTeskelMainWidget::failureChangesNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("text file") << QByteArray(500, 'x');
    QTest::newRow("other creator") << DictionaryWriter()
                                          .addEntries(everydayEntries(), 7)
                                          .container()
                                          .setCreator("TSKX")
                                          .build();
    QTest::newRow("too few records") << PalmWriter().addRecord("a").build();
    QTest::newRow("topic dictionary") << DictionaryWriter()
                                             .addEntries(everydayEntries(), 7)
                                             .setIndex("#topic")
                                             .container()
                                             .build();
}

void TestTeskelMainWidget::failureChangesNothing()
{
    QFETCH(QByteArray, content);
    EverydayBench bench;
    bench.type(u"house"_s);
    const QStringList rows = bench.rows();
    const QString article = bench.article().text();
    const QStringList history = bench.history();
    const QString lastFile = bench.preferences().getLastOpenFile();

    const QString path = bench.path(u"Bad.PDB"_s);
    QVERIFY(writeFile(path, content));
    {
        const WarningCapture warnings;
        QVERIFY(!bench.widget().fileOpen(path, true));
    }
    QCOMPARE(bench.rows(), rows);
    QCOMPARE(bench.currentWord(), u"house"_s);
    QCOMPARE(bench.article().text(), article);
    QCOMPARE(bench.typed(), u"house"_s);
    QCOMPARE(bench.history(), history);
    QCOMPARE(bench.preferences().getLastOpenFile(), lastFile);
}

void TestTeskelMainWidget::fillControlsWithoutADictionaryWarns()
{
    LookupBench bench;
    const WarningCapture warnings;
    bench.widget().fillControls();
    QCOMPARE(warnings.count(u"ASSERT: \"_dictionary.isOpen()\" in teskelmainwidget.cpp ("_s), 1);
    QCOMPARE(bench.list().count(), 0);
}

void TestTeskelMainWidget::namesOfTheOpenDictionary()
{
    LookupBench bench;
    const QString path = bench.write(u"Eng2Ger.large.PDB"_s, everydayEntries());
    QVERIFY(bench.widget().fileOpen(path, true));
    QCOMPARE(bench.widget().getDictionaryFileName(), path);
    QCOMPARE(bench.widget().getDictionaryName(), u"Eng2Ger"_s);
}

void TestTeskelMainWidget::namesWithoutADictionaryAreEmpty()
{
    LookupBench bench;
    QCOMPARE(bench.widget().getDictionaryFileName(), QString());
    QCOMPARE(bench.widget().getDictionaryName(), QString());
}

void TestTeskelMainWidget::fontOfADictionaryIsAppliedWhenItOpens()
{
    LookupBench bench;
    const QString path = bench.path(u"Words.PDB"_s);
    QFont stored = bench.article().font();
    stored.setPointSize(23);
    bench.preferences().setFont(stored, path);
    bench.open(everydayEntries());
    QCOMPARE(bench.article().font().pointSize(), 23);
    QCOMPARE(bench.widget().getEditFont().pointSize(), 23);

    stored.setPointSize(31);
    bench.widget().setEditFont(stored);
    QCOMPARE(bench.article().font().pointSize(), 31);
    bench.widget().setEditFont();
    QCOMPARE(bench.article().font().pointSize(), 23);
}

void TestTeskelMainWidget::fontWithoutADictionaryStays()
{
    LookupBench bench;
    QFont font = bench.article().font();
    font.setPointSize(31);
    bench.widget().setEditFont(font);
    bench.widget().setEditFont();
    QCOMPARE(bench.article().font().pointSize(), 31);
}

void TestTeskelMainWidget::destructionStoresTheFontOfTheOpenFile()
{
    EverydayBench bench;
    QFont font = bench.article().font();
    font.setPointSize(27);
    bench.widget().setEditFont(font);
    bench.stop();
    bench.start();
    QCOMPARE(bench.preferences().getFont(bench.path(u"Words.PDB"_s)).pointSize(), 27);
    QVERIFY(bench.preferences().getFont(u"/other.PDB"_s).pointSize() != 27);
}

void TestTeskelMainWidget::destructionWithoutADictionaryStoresNothing()
{
    LookupBench bench;
    QFont font = bench.article().font();
    font.setPointSize(27);
    bench.widget().setEditFont(font);
    bench.stop();
    QFile file(bench.path(u"config/teskel/Teskel.conf"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.readAll().contains("27"));
}

void TestTeskelMainWidget::navigationEventsSwitchTheHistory()
{
    EverydayBench bench;
    QEvent start(static_cast<QEvent::Type>(3000));
    QEvent finish(static_cast<QEvent::Type>(3001));

    QCoreApplication::sendEvent(&bench.widget(), &start);
    bench.list().setSelected(1, true);
    QCOMPARE(bench.history(), QStringList());
    QCoreApplication::sendEvent(&bench.widget(), &finish);
    bench.list().setSelected(2, true);
    QCOMPARE(bench.history(), QStringList{u"bear"_s});
}

void TestTeskelMainWidget::foreignEventsAreLeftAlone()
{
    EverydayBench bench;
    QEvent foreign(static_cast<QEvent::Type>(3002));
    QCoreApplication::sendEvent(&bench.widget(), &foreign);
    bench.list().setSelected(2, true);
    QCOMPARE(bench.history(), QStringList{u"bear"_s});
}

void TestTeskelMainWidget::dyingChildrenDoNotReachTheWidget()
{
    EverydayBench bench;
    bench.list().setSelected(2, true);
    bool spoke = false;
    QLineEdit* const edit = bench.entry().lineEdit();
    connect(&bench.list(), &QObject::destroyed, &bench.entry(), [&spoke, edit] {
        spoke = true;
        edit->setText(u"cat"_s);
    });
    bench.stop();
    QVERIFY(spoke);
}

QTEST_MAIN(TestTeskelMainWidget)
#include "test_teskelmainwidget.moc"
