// SPDX-License-Identifier: MIT
#include "files/qteskelfilemenu.h"
#include "platform/resource.h"
#include "tests/files/stagedstorage.h"

#include <QAction>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

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
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
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
    const QString card = _storage->addCard(QStringLiteral("card"));
    _staged = {StagedStorage::addFile(internal, QStringLiteral("Eng2Ger.PDB")),
               StagedStorage::addFile(internal, QStringLiteral("fi2de.old.PDB")),
               StagedStorage::addFile(internal, QStringLiteral("Ger2Eng.PDB")),
               StagedStorage::addFile(card, QStringLiteral("Eng2Ger.PDB")),
               StagedStorage::addFile(card, QStringLiteral("Fr2Eng.PDB"))};
}

void QTeskelFileMenuTest::emptyDiscoveryGivesAnEmptyMenu()
{
    const QTeskelFileMenu menu(nullptr, "files");
    QVERIFY(menu.isEmpty());
    QCOMPARE(menu.objectName(), QStringLiteral("files"));
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
    QCOMPARE(texts, (QStringList{QStringLiteral("Eng2Ger"), QStringLiteral("fi2de"),
                                 QStringLiteral("Ger2Eng"), QStringLiteral("Eng2Ger"),
                                 QStringLiteral("Fr2Eng")}));
}

void QTeskelFileMenuTest::iconsTellCardsFromInternalStorage()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    const QImage hard = picture(Resource::loadIcon(QStringLiteral("teskel-hard")));
    const QImage floppy = picture(Resource::loadIcon(QStringLiteral("teskel-floppy")));
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
    StagedStorage::addFile(_storage->addCard(QStringLiteral("late")), QStringLiteral("a2b.PDB"));
    _storage->unmount(QStringLiteral("card"));
    QCOMPARE(menu.actions().size(), 5);
    QVERIFY(menu.findFileName(QStringLiteral("a2b")).isEmpty());
    QCOMPARE(menu.findFileName(QStringLiteral("Fr2Eng")), _staged.at(4));
}

void QTeskelFileMenuTest::ampersandIsShownAndControlCharactersAreNot()
{
    const QString path =
        StagedStorage::addFile(_storage->internalDirectory(),
                               u"R&D && co\tx\ny\u007F\u0085\u2028\u2029\u202E\u2066z.PDB"_qs);
    QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.actions().first()->text(), u"R&&D &&&& co x y      z"_qs);
    const QSignalSpy selected(&menu, &QTeskelFileMenu::fileSelected);
    menu.actions().first()->trigger();
    QCOMPARE(sent(selected, 0).path(), path);
}

void QTeskelFileMenuTest::reverseNameIsThatOfTheRule()
{
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findReverseDictionary(QStringLiteral("Eng2GerGold")),
             QStringLiteral("Ger2EngGold"));
    QCOMPARE(menu.findReverseDictionary(QStringLiteral("EngGer")), QString());
}

void QTeskelFileMenuTest::fileNameIsFoundByItsDisplayName()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(QStringLiteral("Ger2Eng")), _staged.at(2));
    QCOMPARE(menu.findFileName(QStringLiteral("fi2de")), _staged.at(1));
    QVERIFY(menu.findFileName(QStringLiteral("ger2eng")).isEmpty());
    QVERIFY(menu.findFileName(QStringLiteral("Ger2Eng.PDB")).isEmpty());
    QVERIFY(menu.findFileName(QStringLiteral("Ger2")).isEmpty());
    QVERIFY(menu.findFileName(QString()).isEmpty());
}

void QTeskelFileMenuTest::internalFileIsFoundBeforeTheOneOnACard()
{
    stage();
    const QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(QStringLiteral("Eng2Ger")), _staged.at(0));
    QVERIFY(_staged.at(0).startsWith(_storage->internalDirectory()));
}

void QTeskelFileMenuTest::hostileNameIsFoundAndReportedAsItIs()
{
    const QString path =
        StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("<b>x&y.PDB"));
    QTeskelFileMenu menu(nullptr);
    QCOMPARE(menu.findFileName(QStringLiteral("<b>x&y")), path);
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
