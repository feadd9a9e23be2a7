// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "settings/preferences.h"
#include "settings/settingssaver.h"
#include "tests/support/replacementcount.h"

#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

using teskel::SettingsSaver;
using teskel::test::ReplacementCount;

/// The settings record, saved while it lives.
class SettingsSaverTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void isDoneWithinTwoSeconds();
    void slowTypingIsNoRest();
    void everyChangeIsSaved_data();
    void everyChangeIsSaved();
    void settingWhatIsSetIsNoChange();
    void loadingAndSavingAreNoChanges();
    void manyChangesAreOneWrite();
    void keysPutTheWriteOff();
    void whoNeverRestsIsSavedToo();
    void nothingIsWrittenTwice();
    void changesAreLeftToTheRecordWhenTheSaverDies();
    void whatCouldNotBeSavedIsTriedAgain_data();
    void whatCouldNotBeSavedIsTriedAgain();
    void pausesGrowAndStartAnew();
    void nextChangeEndsThePause();
    void failedSaveIsOneWarning();
    void whatCouldNotBeSavedIsSavedAtTheEnd();

private:
    QString fileName() const { return _home->filePath(u"teskel/Teskel.conf"_s); }
    QByteArray stored() const;
    /// No settings can be stored, not by root either, until `clearTheWay()`.
    void standInTheWay() const;
    void clearTheWay() const;
    static void expectOneWarning();

    std::unique_ptr<QTemporaryDir> _home;
};

void SettingsSaverTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("XDG_CONFIG_HOME", _home->path().toUtf8());
    qputenv("HOME", _home->path().toUtf8());
}

QByteArray SettingsSaverTest::stored() const
{
    QFile file(fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SettingsSaverTest::standInTheWay() const
{
    QVERIFY(QDir(_home->filePath(u"teskel"_s)).removeRecursively());
    QFile obstacle(_home->filePath(u"teskel"_s));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
}

void SettingsSaverTest::clearTheWay() const
{
    QVERIFY(QFile::remove(_home->filePath(u"teskel"_s)));
}

void SettingsSaverTest::expectOneWarning()
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"^The settings cannot be written to "_s));
}

void SettingsSaverTest::isDoneWithinTwoSeconds()
{
    QVERIFY(SettingsSaver::usualRest <= SettingsSaver::usualLongest);
    // What is left is for the disk.
    QVERIFY(SettingsSaver::usualLongest <= 1800ms);
    QVERIFY(SettingsSaver::usualPause >= 1s && SettingsSaver::usualPause <= 3s);
    QVERIFY(SettingsSaver::usualLongestPause <= 30s);
}

void SettingsSaverTest::slowTypingIsNoRest()
{
    constexpr std::chrono::milliseconds slow = 500ms; // from key to key
    QVERIFY(SettingsSaver::usualRest >= slow * 3 / 2);
    QVERIFY(SettingsSaver::usualLongest >= slow * 3);
}

void SettingsSaverTest::everyChangeIsSaved_data()
{
    using Change = void (*)(PreferencesData&);
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("line");
    const auto row = [](const char* name, Change change, const QByteArray& line) {
        QTest::newRow(name) << change << line;
    };
    row(
        "last file", [](PreferencesData& data) { data.setLastOpenFile(u"/a.PDB"_s); },
        "LastOpenFile = /a.PDB\n");
    row(
        "history", [](PreferencesData& data) { data.addToMRUList(u"house"_s); }, "List0 = house\n");
    row(
        "full history",
        [](PreferencesData& data) {
            for (const char* word : {"a", "b", "c", "d", "e", "f", "g"})
                data.addToMRUList(QString::fromLatin1(word));
        },
        "List0 = g\n");
    row(
        "layout", [](PreferencesData& data) { data.setLayout(PreferencesData::Horizontal); },
        "PanelView = 0\n");
    row(
        "hand", [](PreferencesData& data) { data.setUserHandType(PreferencesData::RightHanded); },
        "UserHandType = 1\n");
    row(
        "view", [](PreferencesData& data) { data.setViewType(PreferencesData::ToggleViewOff); },
        "ViewType = 0\n");
    row(
        "search", [](PreferencesData& data) { data.setFindType(PreferencesData::FindOnEnter); },
        "FindType = 1\n");
    row(
        "entry", [](PreferencesData& data) { data.setComboPosition(PreferencesData::Bottom); },
        "ComboPosition = 1\n");
    row(
        "menu", [](PreferencesData& data) { data.setMenuPosition(PreferencesData::Bottom); },
        "MenuPosition = 1\n");
    row(
        "font",
        [](PreferencesData& data) {
            data.setDefaultFont(QFont(u"courier"_s, 17));
            data.getFont(u"/a.PDB"_s);
        },
        "FontSize = 17\n");
}

void SettingsSaverTest::everyChangeIsSaved()
{
    using Change = void (*)(PreferencesData&);
    QFETCH(Change, change);
    QFETCH(QByteArray, line);
    PreferencesData preferences;
    preferences.save();
    QVERIFY(!stored().contains(line));
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    change(preferences);
    QVERIFY(!stored().contains(line)); // not at once
    QTRY_VERIFY(stored().contains(line));
    QVERIFY(!saver.isPending());
}

void SettingsSaverTest::settingWhatIsSetIsNoChange()
{
    PreferencesData preferences;
    preferences.setLastOpenFile(u"/a.PDB"_s);
    preferences.addToMRUList(u"house"_s);
    preferences.getFont(u"/a.PDB"_s);
    const SettingsSaver saver(preferences);
    preferences.setLastOpenFile(u"/a.PDB"_s);
    preferences.addToMRUList(u"house"_s);
    preferences.getFont(u"/a.PDB"_s);
    preferences.setLayout(preferences.getLayout());
    preferences.setUserHandType(preferences.getUserHandType());
    preferences.setViewType(preferences.getViewType());
    preferences.setFindType(preferences.getFindType());
    preferences.setComboPosition(preferences.getComboPosition());
    preferences.setMenuPosition(preferences.getMenuPosition());
    QVERIFY(!saver.isPending());
}

void SettingsSaverTest::loadingAndSavingAreNoChanges()
{
    PreferencesData preferences;
    const SettingsSaver saver(preferences);
    preferences.save();
    preferences.load();
    QVERIFY(!saver.isPending());
}

void SettingsSaverTest::manyChangesAreOneWrite()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 1h);
    const ReplacementCount writes(_home->filePath(u"teskel"_s));
    for (int number = 0; number < 100; ++number)
        preferences.addToMRUList(QString::number(number));
    QTRY_VERIFY(!saver.isPending());
    QVERIFY(stored().contains("List0 = 99\n"));
    QCOMPARE(writes.count(), 1);
}

void SettingsSaverTest::keysPutTheWriteOff()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    QLineEdit entry;
    entry.show();
    const ReplacementCount writes(_home->filePath(u"teskel"_s));
    saver.setTimes(0ms, 1h);
    preferences.addToMRUList(u"house"_s); // to be saved at the next opportunity
    saver.setTimes(1h, 1h);
    QTest::keyClick(&entry, Qt::Key_A); // but now an hour after the key
    QCoreApplication::processEvents();
    QVERIFY(saver.isPending());
    QCOMPARE(writes.count(), 0);
    saver.setTimes(0ms, 1h);
    QTest::keyClick(&entry, Qt::Key_B);
    QTRY_VERIFY(!saver.isPending());
    QCOMPARE(writes.count(), 1);
}

void SettingsSaverTest::whoNeverRestsIsSavedToo()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(1h, 20ms);
    QLineEdit entry;
    entry.show();
    preferences.addToMRUList(u"house"_s);
    QTRY_VERIFY((QTest::keyClick(&entry, Qt::Key_A), stored().contains("List0 = house\n")));
}

void SettingsSaverTest::nothingIsWrittenTwice()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    QLineEdit entry;
    entry.show();
    preferences.addToMRUList(u"house"_s);
    QTRY_VERIFY(!saver.isPending());
    const ReplacementCount writes(_home->filePath(u"teskel"_s));
    QTest::keyClicks(&entry, u"typed"_s);
    QVERIFY(!saver.isPending());
    preferences.save();
    QCOMPARE(writes.count(), 0);
}

void SettingsSaverTest::changesAreLeftToTheRecordWhenTheSaverDies()
{
    {
        PreferencesData preferences;
        const SettingsSaver saver(preferences);
        preferences.addToMRUList(u"house"_s);
        QVERIFY(saver.isPending());
    }
    QVERIFY(stored().contains("List0 = house\n"));
}

void SettingsSaverTest::whatCouldNotBeSavedIsTriedAgain_data()
{
    using Change = void (*)(PreferencesData&);
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("a word") << Change([](PreferencesData& data) { data.addToMRUList(u"house"_s); })
                            << QByteArray("List0 = house\n");
    QTest::newRow("a setting") << Change([](PreferencesData& data) {
        data.setLayout(PreferencesData::Horizontal);
    }) << QByteArray("PanelView = 0\n");
    QTest::newRow("a dictionary's font")
        << Change([](PreferencesData& data) { data.setFont(QFont(u"times"_s, 21), u"/a.PDB"_s); })
        << QByteArray("[/a.PDB]\nFontName = times\nFontOrder = 1\nFontSize = 21\n");
}

void SettingsSaverTest::whatCouldNotBeSavedIsTriedAgain()
{
    using Change = void (*)(PreferencesData&);
    QFETCH(Change, change);
    QFETCH(QByteArray, line);
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    saver.setPauses(1ms, 1ms);
    standInTheWay();
    expectOneWarning();
    change(preferences);
    QCoreApplication::processEvents();
    QVERIFY(saver.isPending());
    clearTheWay();
    QTRY_VERIFY(!saver.isPending());
    QVERIFY2(stored().contains(line), stored().constData());
}

void SettingsSaverTest::pausesGrowAndStartAnew()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    saver.setPauses(8ms, 20ms);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(saver.pause(), 0ms);
        standInTheWay();
        expectOneWarning();
        preferences.addToMRUList(QString::number(round));
        QTRY_COMPARE(saver.pause(), 20ms);
        clearTheWay();
        QTRY_VERIFY(!saver.isPending());
    }
    saver.setPauses(1h, 2h);
    standInTheWay();
    expectOneWarning();
    preferences.addToMRUList(u"house"_s);
    QTRY_COMPARE(saver.pause(), 1h);
    clearTheWay();
}

void SettingsSaverTest::nextChangeEndsThePause()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    saver.setPauses(1h, 1h);
    standInTheWay();
    expectOneWarning();
    preferences.addToMRUList(u"house"_s);
    QTRY_COMPARE(saver.pause(), 1h);
    clearTheWay();
    QLineEdit entry;
    entry.show();
    QTest::keyClick(&entry, Qt::Key_A);
    QCoreApplication::processEvents();
    QVERIFY(saver.isPending()); // a key alone is none
    preferences.addToMRUList(u"garden"_s);
    QTRY_VERIFY(!saver.isPending());
    QVERIFY(stored().contains("List0 = house\nList1 = garden\n"));
}

void SettingsSaverTest::failedSaveIsOneWarning()
{
    PreferencesData preferences;
    SettingsSaver saver(preferences);
    saver.setTimes(0ms, 0ms);
    saver.setPauses(8ms, 100ms);
    standInTheWay();
    expectOneWarning();
    preferences.addToMRUList(u"house"_s);
    QTRY_COMPARE(saver.pause(), 100ms); // which took many attempts; another warning is a failure
    clearTheWay();
    QTRY_VERIFY(!saver.isPending());
}

void SettingsSaverTest::whatCouldNotBeSavedIsSavedAtTheEnd()
{
    {
        PreferencesData preferences;
        SettingsSaver saver(preferences);
        saver.setTimes(0ms, 0ms);
        saver.setPauses(1h, 1h);
        standInTheWay();
        expectOneWarning();
        preferences.addToMRUList(u"house"_s);
        preferences.setFont(QFont(u"times"_s, 21), u"/a.PDB"_s);
        QTRY_COMPARE(saver.pause(), 1h);
        clearTheWay();
    }
    QVERIFY(stored().contains("List0 = house\n"));
    QVERIFY(stored().contains("FontSize = 21\n"));
}

QTEST_MAIN(SettingsSaverTest)
#include "test_settingssaver.moc"
