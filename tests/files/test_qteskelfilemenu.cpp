// SPDX-License-Identifier: MIT
#include "files/qteskelfilemenu.h"
#include "platform/resource.h"
#include "tests/files/stagedstorage.h"

#include <QAction>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

QImage picture(const QIcon& icon)
{
    return icon.pixmap(16, 16).toImage();
}

QTeskelFileInfo sent(const QSignalSpy& spy, int number)
{
    return spy.at(number).first().value<QTeskelFileInfo>();
}

} // namespace

/// The menu of installed dictionaries over staged storage.
class QTeskelFileMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyDiscoveryGivesAnEmptyMenu();
    void entriesStandInTheOrderOfDiscovery();
    void iconsTellCardsFromInternalStorage();
    void choosingAnEntryReportsItsFile();
    void unknownNumbersAreIgnored();
    void cardsThatComeLaterDoNotChangeTheMenu();
    void ampersandIsShownAndControlCharactersAreNot();
    void reverseNameIsThatOfTheRule();
    void fileNameIsFoundByItsDisplayName();
    void internalFileIsFoundBeforeTheOneOnACard();
    void hostileNameIsFoundAndReportedAsItIs();
    void receiverMayDeleteTheMenu();

private:
    void stage();

    std::unique_ptr<StagedStorage> _storage;
    QStringList _staged;
};

void QTeskelFileMenuTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    _storage = std::make_unique<StagedStorage>();
    _staged.clear();
}

void QTeskelFileMenuTest::cleanup()
{
    _storage.reset();
}

/// Three internal files and two on a card; the one numbered 3 has the name of the one numbered 0.
void QTeskelFileMenuTest::stage()
{
    const QString internal = _storage->internalDirectory();
    const QString card = _storage->addCard(u"card"_s);
    _staged = {StagedStorage::addFile(internal, u"Eng2Ger.PDB"_s),
               StagedStorage::addFile(internal, u"fi2de.old.PDB"_s),
               StagedStorage::addFile(internal, u"Ger2Eng.PDB"_s),
               StagedStorage::addFile(card, u"Eng2Ger.PDB"_s),
               StagedStorage::addFile(card, u"Fr2Eng.PDB"_s)};
}

void QTeskelFileMenuTest::emptyDiscoveryGivesAnEmptyMenu()
{
    const QTeskelFileMenu menu(nullptr, "files");
    QVERIFY(menu.isEmpty());
    QCOMPARE(menu.objectName(), u"files"_s);
    QCOMPARE(menu.findFileName(QString()), QString());
}

void QTeskelFileMenuTest::entriesStandInTheOrderOfDiscovery()
{
    stage();
    const QTeskelFileMenu menu(nullptr, "files");
    QStringList texts;
    const auto entries = menu.actions();
    for (int id = 0; id < entries.size(); ++id) {
        texts.append(entries.at(id)->text());
        QCOMPARE(entries.at(id)->data().toInt(), id);
        QVERIFY(!entries.at(id)->isSeparator());
    }
    QCOMPARE(texts,
             (QStringList{u"Eng2Ger"_s, u"fi2de"_s, u"Ger2Eng"_s, u"Eng2Ger"_s, u"Fr2Eng"_s}));
}

void QTeskelFileMenuTest::iconsTellCardsFromInternalStorage()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    const QImage hard = picture(Resource::loadIcon(u"teskel-hard"_s));
    const QImage floppy = picture(Resource::loadIcon(u"teskel-floppy"_s));
    QVERIFY(!hard.isNull());
    QVERIFY(hard != floppy);
    const auto entries = menu.actions();
    for (int id = 0; id < entries.size(); ++id)
        QCOMPARE(picture(entries.at(id)->icon()), id < 3 ? hard : floppy);
}

void QTeskelFileMenuTest::choosingAnEntryReportsItsFile()
{
    stage();
    QTeskelFileMenu menu(nullptr);
    const QSignalSpy selected(&menu, &QTeskelFileMenu::fileSelected);
    const auto entries = menu.actions();
    for (QAction* entry : entries)
        entry->trigger();
    QCOMPARE(selected.count(), 5);
    QStringList reported;
    for (int number = 0; number < 5; ++number) {
        reported.append(sent(selected, number).path());
        QCOMPARE(sent(selected, number)._removable, number >= 3);
    }
    QCOMPARE(reported, _staged);
}

void QTeskelFileMenuTest::unknownNumbersAreIgnored()
{
    stage();
    QTeskelFileMenu menu(nullptr);
    const QSignalSpy selected(&menu, &QTeskelFileMenu::fileSelected);
    menu.menuActivated(-1);
    menu.menuActivated(5);
    QCOMPARE(selected.count(), 0);
    menu.menuActivated(4);
    QCOMPARE(selected.count(), 1);
}

void QTeskelFileMenuTest::cardsThatComeLaterDoNotChangeTheMenu()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    StagedStorage::addFile(_storage->addCard(u"late"_s), u"a2b.PDB"_s);
    _storage->unmount(u"card"_s);
    QCOMPARE(menu.actions().size(), 5);
    QVERIFY(menu.findFileName(u"a2b"_s).isEmpty());
    QCOMPARE(menu.findFileName(u"Fr2Eng"_s), _staged.at(4));
}

void QTeskelFileMenuTest::ampersandIsShownAndControlCharactersAreNot()
{
    const QString path =
        StagedStorage::addFile(_storage->internalDirectory(),
                               u"R&D && co\tx\ny\u007F\u0085\u2028\u2029\u202E\u2066z.PDB"_s);
    QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.actions().first()->text(), u"R&&D &&&& co x y      z"_s);
    const QSignalSpy selected(&menu, &QTeskelFileMenu::fileSelected);
    menu.actions().first()->trigger();
    QCOMPARE(sent(selected, 0).path(), path);
}

void QTeskelFileMenuTest::reverseNameIsThatOfTheRule()
{
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findReverseDictionary(u"Eng2GerGold"_s), u"Ger2EngGold"_s);
    QCOMPARE(menu.findReverseDictionary(u"EngGer"_s), QString());
}

void QTeskelFileMenuTest::fileNameIsFoundByItsDisplayName()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(u"Ger2Eng"_s), _staged.at(2));
    QCOMPARE(menu.findFileName(u"fi2de"_s), _staged.at(1));
    QVERIFY(menu.findFileName(u"ger2eng"_s).isEmpty());
    QVERIFY(menu.findFileName(u"Ger2Eng.PDB"_s).isEmpty());
    QVERIFY(menu.findFileName(u"Ger2"_s).isEmpty());
    QVERIFY(menu.findFileName(QString()).isEmpty());
}

void QTeskelFileMenuTest::internalFileIsFoundBeforeTheOneOnACard()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(u"Eng2Ger"_s), _staged.at(0));
    QVERIFY(_staged.at(0).startsWith(_storage->internalDirectory()));
}

void QTeskelFileMenuTest::hostileNameIsFoundAndReportedAsItIs()
{
    const QString path = StagedStorage::addFile(_storage->internalDirectory(), u"<b>x&y.PDB"_s);
    QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(u"<b>x&y"_s), path);
    const QSignalSpy selected(&menu, &QTeskelFileMenu::fileSelected);
    menu.actions().first()->trigger();
    QCOMPARE(sent(selected, 0).path(), path);
}

void QTeskelFileMenuTest::receiverMayDeleteTheMenu()
{
    stage();
    auto* menu = new QTeskelFileMenu(nullptr);
    QString path;
    connect(menu, &QTeskelFileMenu::fileSelected, this, [&](const QTeskelFileInfo& info) {
        delete menu;
        path = info.path();
    });
    menu->menuActivated(0);
    QCOMPARE(path, _staged.at(0));
}

QTEST_MAIN(QTeskelFileMenuTest)
#include "test_qteskelfilemenu.moc"
