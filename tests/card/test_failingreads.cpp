// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "tests/card/failingdevice.h"
#include "tests/lookup/messagewatch.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/qteskelcombobox.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;
using teskel::test::FailingDevice;
using Fault = teskel::test::FailingDevice::Fault;

/// The window over a dictionary whose reads fail by a plan.
class FailingReadsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void useWhileReadsFail_data();
    void useWhileReadsFail();
    void everyReadFailsInItsTurn_data();
    void everyReadFailsInItsTurn();
    void openingWhileReadsFail_data();
    void openingWhileReadsFail();
    void slowReadIsWaitedForOnce();
    void keyMakesFewReadsOfADeadDevice_data();
    void keyMakesFewReadsOfADeadDevice();

private:
    using Use = void (*)(TeskelMainWindow&);

    [[nodiscard]] QString path() const { return _home->filePath(u"teskel/Card2Ger.PDB"_s); }
    [[nodiscard]] QString otherPath() const { return _home->filePath(u"teskel/Eng2Ger.PDB"_s); }
    /// What is wrong with what the window shows, or nothing.
    static QString wrong(const TeskelMainWindow& window);
    /// Whether the window works on the dictionary as if nothing had ever failed.
    static QString stillFailing(TeskelMainWindow& window);

    std::unique_ptr<QTemporaryDir> _home;
};

namespace
{

QLineEdit& entryOf(const TeskelMainWindow& window)
{
    return *window.findChild<QTeskelComboBox*>()->lineEdit();
}

QString articleOf(const TeskelMainWindow& window)
{
    return window.findChild<QTeskelEdit*>()->toPlainText();
}

void press(TeskelMainWindow& window, Qt::Key key)
{
    QTest::keyClick(window.findChild<QTeskelComboBox*>(), key);
}

template<Qt::Key key>
void pressOnce(TeskelMainWindow& window)
{
    press(window, key);
}

void type(TeskelMainWindow& window)
{
    entryOf(window).setText(u"wmq"_s);
}

void typeBeginning(TeskelMainWindow& window)
{
    entryOf(window).setText(u"wk"_s);
}

void takeRandomWord(TeskelMainWindow& window)
{
    window.lexiconRandomWord();
}

void walk(TeskelMainWindow& window)
{
    for (const Qt::Key key :
         {Qt::Key_End, Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Home, Qt::Key_PageDown, Qt::Key_Down})
        press(window, key);
}

void useMuch(TeskelMainWindow& window)
{
    for (const char* word : {"waa", "wbz", "wmq", "wzz", "nothing", "wk", "w"})
        entryOf(window).setText(QString::fromLatin1(word));
    walk(window);
    for (int round = 0; round < 5; ++round)
        window.lexiconRandomWord();
    QApplication::processEvents();
}

} // namespace

void FailingReadsTest::init()
{
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("QPEDIR", QFile::encodeName(_home->path()));
    qputenv("HOME", QFile::encodeName(_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home->filePath(u"config"_s)));
    // "waa" to "wzz", more records than the engine keeps unpacked.
    QList<teskel::test::Entry> entries;
    for (char second = 'a'; second <= 'z'; ++second) {
        for (char third = 'a'; third <= 'z'; ++third) {
            const QByteArray tail{QByteArray(1, second) + third};
            entries.append(teskel::test::Entry("w" + tail, "article of " + tail));
        }
    }
    QVERIFY(DictionaryWriter().addEntries(entries, 4).write(path()));
    QVERIFY(DictionaryWriter().addRecord({{"house", "Haus"}}).write(otherPath()));
}

void FailingReadsTest::cleanup()
{
    _home.reset();
}

QString FailingReadsTest::wrong(const TeskelMainWindow& window)
{
    static const QRegularExpression word(u"^w[a-z][a-z]$"_s);
    const auto* const list = window.findChild<QTeskelListBox*>();
    for (int row = 0; row < list->count(); ++row) {
        if (!list->text(row).isEmpty() && !word.match(list->text(row)).hasMatch())
            return u"row "_s + list->text(row);
    }
    const QString article = articleOf(window);
    if (article.isEmpty() || article == "A dictionary made for a test"_L1)
        return {};
    const QString shown = entryOf(window).text();
    const QString right = shown + "\narticle of "_L1 + shown.mid(1);
    return article == right ? QString() : "for "_L1 + shown + ": "_L1 + article;
}

QString FailingReadsTest::stillFailing(TeskelMainWindow& window)
{
    for (const char* word : {"wqq", "waa", "wzz", "wmq"}) {
        entryOf(window).setText(QString::fromLatin1(word));
        if (articleOf(window).isEmpty() || !wrong(window).isEmpty())
            return QString::fromLatin1(word) + ": "_L1 + articleOf(window);
    }
    press(window, Qt::Key_Down);
    return entryOf(window).text() == "wmr"_L1 ? wrong(window) : entryOf(window).text();
}

void FailingReadsTest::useWhileReadsFail_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<bool>("isHarmless");
    QTest::newRow("interrupted") << Fault::Interrupted << true;
    QTest::newRow("a few bytes at once") << Fault::Short << true;
    QTest::newRow("error") << Fault::Error << false;
    QTest::newRow("nothing comes") << Fault::End << false;
    QTest::newRow("wrong bytes") << Fault::WrongBytes << false;
}

void FailingReadsTest::useWhileReadsFail()
{
    QFETCH(Fault, fault);
    QFETCH(bool, isHarmless);
    const teskel::test::WarningCapture warnings;
    FailingDevice device(path());
    TeskelMainWindow window;
    window.show();
    window.openFile(path());
    device.plan(fault);
    useMuch(window);
    QVERIFY(device.faults() > 0);
    QCOMPARE(wrong(window), QString());
    if (isHarmless)
        QCOMPARE(stillFailing(window), QString());

    device.plan(Fault::None);
    // What came with wrong bytes was damaged; who wants it read again opens the file again.
    if (fault == Fault::WrongBytes)
        window.openFile(path());
    QCOMPARE(stillFailing(window), QString());
}

void FailingReadsTest::everyReadFailsInItsTurn_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("error") << Fault::Error;
    QTest::newRow("nothing comes") << Fault::End;
    QTest::newRow("wrong bytes") << Fault::WrongBytes;
}

void FailingReadsTest::everyReadFailsInItsTurn()
{
    QFETCH(Fault, fault);
    const teskel::test::WarningCapture warnings;
    FailingDevice device(path());
    TeskelMainWindow window;
    window.show();
    for (int failing = 0;; ++failing) {
        device.plan(Fault::None);
        window.openFile(otherPath()); // so that nothing of the file is kept
        window.openFile(path());
        device.plan(fault, failing, 1);
        for (const char* word : {"wmq", "wk", "wbz"}) {
            entryOf(window).setText(QString::fromLatin1(word));
            QVERIFY2(wrong(window).isEmpty(), qPrintable(wrong(window)));
        }
        walk(window);
        QVERIFY2(wrong(window).isEmpty(), qPrintable(wrong(window)));
        if (device.faults() == 0)
            break;
        if (fault != Fault::WrongBytes)
            QCOMPARE(stillFailing(window), QString());
    }
}

void FailingReadsTest::openingWhileReadsFail_data()
{
    everyReadFailsInItsTurn_data();
    QTest::newRow("a few bytes at once") << Fault::Short;
}

void FailingReadsTest::openingWhileReadsFail()
{
    QFETCH(Fault, fault);
    const teskel::test::WarningCapture warnings;
    const teskel::test::MessageWatch boxes;
    FailingDevice device(path());
    for (int failing = 0;; ++failing) {
        TeskelMainWindow window;
        window.show();
        window.openFile(otherPath());
        device.plan(fault, failing, 1);
        window.openFile(path());
        if (device.faults() == 0)
            break;
        useMuch(window);
        QVERIFY2(entryOf(window).text() == "house"_L1 || wrong(window).isEmpty(),
                 qPrintable(wrong(window)));
        device.plan(Fault::None);
        window.openFile(path());
        QCOMPARE(window.windowTitle(), u"Teskel-Card2Ger"_s);
        QCOMPARE(stillFailing(window), QString());
    }
}

/// A card that has to think about it.
void FailingReadsTest::slowReadIsWaitedForOnce()
{
    FailingDevice device(path());
    TeskelMainWindow window;
    window.show();
    window.openFile(path());
    device.plan(Fault::Slow, 0, 1);
    QElapsedTimer timer;
    timer.start();
    entryOf(window).setText(u"wmq"_s);
    QVERIFY(timer.elapsed() >= 2000);
    QCOMPARE(device.faults(), 1);
    QCOMPARE(wrong(window), QString());
    QVERIFY(articleOf(window).endsWith(u"article of mq"_s));
}

void FailingReadsTest::keyMakesFewReadsOfADeadDevice_data()
{
    QTest::addColumn<Use>("use");
    QTest::newRow("typing a word") << Use(type);
    QTest::newRow("typing a beginning") << Use(typeBeginning);
    QTest::newRow("a random word") << Use(takeRandomWord);
    QTest::newRow("Down") << Use(pressOnce<Qt::Key_Down>);
    QTest::newRow("Up") << Use(pressOnce<Qt::Key_Up>);
    QTest::newRow("Page Down") << Use(pressOnce<Qt::Key_PageDown>);
    QTest::newRow("Page Up") << Use(pressOnce<Qt::Key_PageUp>);
    QTest::newRow("Home") << Use(pressOnce<Qt::Key_Home>);
    QTest::newRow("End") << Use(pressOnce<Qt::Key_End>);
}

/// Each read of a card without contact may take seconds, so there must not be many.
void FailingReadsTest::keyMakesFewReadsOfADeadDevice()
{
    constexpr int mostReads = 3;
    QFETCH(Use, use);
    const teskel::test::WarningCapture warnings;
    FailingDevice device(path());
    TeskelMainWindow window;
    window.show();
    window.openFile(path());
    entryOf(window).setText(u"wpp"_s);
    // A held key comes to the end of what is there.
    constexpr int repeats = 60;
    int most = 0;
    int all = 0;
    for (int repeat = 0; repeat < repeats; ++repeat) {
        device.plan(Fault::Error);
        use(window);
        most = std::max(most, device.reads());
        all += device.reads();
    }
    QVERIFY(all > 0);
    QVERIFY2(most <= mostReads, qPrintable(QString::number(most)));
    QCOMPARE(wrong(window), QString());
}

QTEST_MAIN(FailingReadsTest)
#include "test_failingreads.moc"
