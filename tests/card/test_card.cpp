// SPDX-License-Identifier: MIT
#include "app/teskelmainwindow.h"
#include "files/fileloader.h"
#include "files/qteskelfilemenu.h"
#include "platform/qcopchannel.h"
#include "platform/resource.h"
#include "platform/storage/mountwatcher.h"
#include "platform/storage/storageinfo.h"
#include "tests/card/readingfailure.h"
#include "tests/card/stagedcard.h"
#include "tests/lookup/messagewatch.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"
#include "widgets/article/qteskeledit.h"
#include "widgets/listbox/qteskellistbox.h"
#include "widgets/qteskelcombobox.h"
#include "widgets/scrolling/qteskelscrollbar.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;

using teskel::test::DictionaryWriter;
using teskel::test::StagedCard;

namespace
{

/// "waa" to "wzz": 676 words, more records than the engine keeps unpacked.
QList<teskel::test::Entry> manyEntries()
{
    QList<teskel::test::Entry> entries;
    for (char second = 'a'; second <= 'z'; ++second) {
        for (char third = 'a'; third <= 'z'; ++third) {
            const QByteArray tail{QByteArray(1, second) + third};
            entries.append(teskel::test::Entry("w" + tail, "article of " + tail));
        }
    }
    return entries;
}

/// What a person can do to the window without choosing another dictionary.
void useEverything(TeskelMainWindow& window)
{
    auto* entry = window.findChild<QTeskelComboBox*>();
    const auto keys = {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Down,
                       Qt::Key_Up,   Qt::Key_PageUp,   Qt::Key_Home};
    for (int round = 0; round < 20; ++round) {
        for (const Qt::Key key : keys)
            QTest::keyClick(entry, key);
    }
    auto* bar = window.findChild<QTeskelListBox*>()->verticalScrollBar();
    for (int round = 0; round < 20; ++round) {
        emit bar->nextLine();
        emit bar->prevLine();
    }
    for (const char* text : {"w", "wm", "wmq", "wzz", "waa", "nothing", "w"})
        entry->lineEdit()->setText(QString::fromLatin1(text));
    for (int round = 0; round < 50; ++round)
        window.lexiconRandomWord();
    window.findChild<QTeskelEdit*>()->selectAll();
    window.crossLookup();
    window.editCopyTranslation();
    QApplication::processEvents();
}

} // namespace

class TestCard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void dictionariesOfACardFollowTheInternalOnesWithTheCardIcon();
    void dictionariesOfACardThatWasPulledAreNotListed();
    void everyMountAndUnmountSendsOneMessage();
    void cardPulledOutWhileReading_data();
    void cardPulledOutWhileReading();

private:
    enum class Damage { UnmountedLazily, Truncated, Deleted, EveryReadFails };

    QString installOnCard(const QString& name) const;

    std::unique_ptr<QTemporaryDir> _home;
    std::unique_ptr<StagedCard> _card;
};

void TestCard::init()
{
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("QPEDIR", QFile::encodeName(_home->path()));
    qputenv("HOME", QFile::encodeName(_home->path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(_home->filePath(u"config"_s)));
    QVERIFY(DictionaryWriter()
                .addRecord({{"house", "1. Haus"}, {"tree", "Baum"}})
                .write(_home->filePath(u"teskel/Eng2Ger.PDB"_s)));

    _card = std::make_unique<StagedCard>();
    StorageInfo::setRoots(_card->roots());
}

void TestCard::cleanup()
{
    StorageInfo::setRoots(StorageRoots());
    _card.reset();
    _home.reset();
}

QString TestCard::installOnCard(const QString& name) const
{
    const QString path = _card->dictionaries() + u'/' + name;
    DictionaryWriter writer;
    writer.addEntries(manyEntries(), 4);
    return QDir().mkpath(_card->dictionaries()) && writer.write(path) ? path : QString();
}

void TestCard::dictionariesOfACardFollowTheInternalOnesWithTheCardIcon()
{
    const QString path = installOnCard(u"Card2Ger.PDB"_s);
    const QList<QTeskelFileInfo> files = FileLoader().getFileList(false);
    QCOMPARE(files.size(), 2);
    QVERIFY(!files.at(0)._removable);
    QVERIFY(files.at(1)._removable);
    QCOMPARE(files.at(1).path(), path);

    const QTeskelFileMenu menu(nullptr);
    const QSize size(16, 16);
    const auto imageOf = [size](const QIcon& icon) { return icon.pixmap(size).toImage(); };
    QCOMPARE(menu.actions().size(), 2);
    QCOMPARE(imageOf(menu.actions().at(0)->icon()),
             imageOf(QIcon(Resource::loadIcon(u"teskel-hard"_s))));
    QCOMPARE(menu.actions().at(1)->text(), u"Card2Ger"_s);
    QCOMPARE(imageOf(menu.actions().at(1)->icon()),
             imageOf(QIcon(Resource::loadIcon(u"teskel-floppy"_s))));
}

void TestCard::dictionariesOfACardThatWasPulledAreNotListed()
{
    QVERIFY(!installOnCard(u"Card2Ger.PDB"_s).isEmpty());
    QCOMPARE(FileLoader().getFileList(true).size(), 1);
    QVERIFY(_card->pull(false));
    QCOMPARE(FileLoader().getFileList(true).size(), 0);
}

void TestCard::everyMountAndUnmountSendsOneMessage()
{
    if (!_card->isReal())
        QSKIP("This machine lets no test mount a file system.");
    teskel::MountWatcher watcher(_card->roots().mountInfo);
    watcher.setSettlingTime(std::chrono::milliseconds(10));
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);

    // Each change waits for its own message; a second one would be counted with the next.
    int expected = 0;
    for (int round = 0; round < 2; ++round) {
        QVERIFY(_card->pull(false));
        ++expected;
        QTRY_COMPARE(received.size(), expected);
        QVERIFY(_card->insert());
        ++expected;
        QTRY_COMPARE(received.size(), expected);
    }
    for (const QList<QVariant>& message : received)
        QCOMPARE(message.at(0).toByteArray(), QByteArray("mtabChanged()"));
}

void TestCard::cardPulledOutWhileReading_data()
{
    QTest::addColumn<int>("damage");
    QTest::addColumn<bool>("readsFail");
    // The kernel keeps an open file for its reader, whatever becomes of its name.
    QTest::newRow("unmounted lazily") << static_cast<int>(Damage::UnmountedLazily) << false;
    QTest::newRow("file deleted") << static_cast<int>(Damage::Deleted) << false;
    QTest::newRow("file truncated") << static_cast<int>(Damage::Truncated) << true;
    QTest::newRow("every read fails") << static_cast<int>(Damage::EveryReadFails) << true;
}

void TestCard::cardPulledOutWhileReading()
{
    QFETCH(int, damage);
    QFETCH(bool, readsFail);
    const QString path = installOnCard(u"Card2Ger.PDB"_s);
    const teskel::test::MessageWatch boxes;
    const teskel::test::WarningCapture warnings;

    TeskelMainWindow window;
    window.resize(320, 320);
    window.show();
    window.openFile(path);
    QCOMPARE(window.windowTitle(), u"Teskel-Card2Ger"_s);
    auto* entry = window.findChild<QTeskelComboBox*>();
    auto* article = window.findChild<QTeskelEdit*>();
    entry->lineEdit()->setText(u"waa"_s);
    QVERIFY(article->text().contains(u"article of aa"_s));

    switch (static_cast<Damage>(damage)) {
    case Damage::UnmountedLazily:
        QVERIFY(_card->pull(true));
        break;
    case Damage::Deleted:
        QVERIFY(QFile::remove(path));
        break;
    case Damage::Truncated:
        QVERIFY(QFile::resize(path, 0));
        break;
    case Damage::EveryReadFails:
        QVERIFY(teskel::test::failReadsOf(path));
        break;
    }

    // First an article that was never read, before the list has walked over it.
    entry->lineEdit()->setText(u"wmq"_s);
    if (readsFail)
        QCOMPARE(article->text(), QString());
    else
        QVERIFY(article->text().contains(u"article of mq"_s));
    useEverything(window);

    // Another dictionary opens as usual.
    window.findChild<QTeskelFileMenu*>()->menuActivated(0);
    QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    entry->lineEdit()->setText(u"tree"_s);
    QVERIFY(article->text().contains(u"Baum"_s));

    if (static_cast<Damage>(damage) != Damage::EveryReadFails) {
        // The file of the pulled card is reported, and the open dictionary stays.
        const auto before = boxes.messages.size();
        window.openFile(path);
        QCOMPARE(boxes.messages.size(), before + 1);
        QCOMPARE(boxes.messages.last().text, u"File\n%1\nis not a valid dictionary"_s.arg(path));
        QCOMPARE(window.windowTitle(), u"Teskel-Eng2Ger"_s);
    }
}

int main(int argc, char* argv[])
{
    StagedCard::enterOwnNamespace();
    QApplication application(argc, argv);
    TestCard test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_card.moc"
