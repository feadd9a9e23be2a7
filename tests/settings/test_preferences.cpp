// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "settings/preferences.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

QByteArrayList words(const PreferencesData& preferences)
{
    QByteArrayList list{"left over"};
    preferences.fillMRUList(list);
    return list;
}

void add(PreferencesData& preferences, const QStringList& added)
{
    for (const QString& word : added)
        preferences.addToMRUList(word);
}

} // namespace

/// The settings record against files staged in a directory of each test's own.
class PreferencesTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstStartHasTheDefaults();
    void fileIsWrittenWhenTheRecordDies();
    void settersDoNotWriteTheFile();
    void everySettingSurvivesARestart();
    void everyKeyLoadsIntoItsOwnField();
    void numbersWithoutANameAreKept();
    void emptyWordsLeaveNoGap();
    void storedWordsWhollyOutsideLatin1LeaveNoGap();
    void wordsBeyondTheSixthKeyAreNotRead();
    void newWordsGoToTheEndUntilSixAreHeldThenToTheFront();
    void wordInAnotherCaseIsNew();
    void wordEndsAtTheFirstCharacterOutsideLatin1_data();
    void wordEndsAtTheFirstCharacterOutsideLatin1();
    void latin1WordsSurviveARestart();
    void loadReplacesTheWords();
    void savedWordsLeaveKeysBeyondThemAlone();
    void dictionaryWithoutAGroupGetsTheDefaultFont();
    void fetchedFontBecomesTheGlobalOne();
    void fetchedFontKeepsTheWeightOfTheDefaultFont();
    void storedFontIsInTheFileAtOnceAndDoesNotBecomeGlobal();
    void globalFontSurvivesARestart();
    void fontCanBeStoredUnderTheEmptyName();
    void fontWrittenAfterTheRecordSavedStandsBesideIt();
    void fontSetInPixelsIsStoredInPoints();
    void impossibleFontSizeLeavesTheDefault();
    void garbageFileGivesTheDefaults_data();
    void garbageFileGivesTheDefaults();
    void unknownGroupsAndKeysStayInTheFile();
    void wordWithALineFeedCannotForgeASetting();
    void unwritableFileIsOneWarning();

private:
    QString fileName() const { return _home->filePath(u"teskel/Teskel.conf"_s); }
    void stage(const QByteArray& content);
    QString stored(const QString& group, const QString& key) const;

    std::unique_ptr<QTemporaryDir> _home;
};

void PreferencesTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(_home->isValid());
    qputenv("XDG_CONFIG_HOME", _home->path().toUtf8());
    qputenv("HOME", _home->path().toUtf8());
}

void PreferencesTest::cleanup()
{
    _home.reset();
}

void PreferencesTest::stage(const QByteArray& content)
{
    QVERIFY(QDir().mkpath(QFileInfo(fileName()).path()));
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QString PreferencesTest::stored(const QString& group, const QString& key) const
{
    Config config(fileName(), Config::File);
    config.setGroup(group);
    return config.readEntry(key, u"(missing)"_s);
}

void PreferencesTest::firstStartHasTheDefaults()
{
    const PreferencesData preferences;
    QCOMPARE(preferences.getLayout(), PreferencesData::Vertical);
    QCOMPARE(preferences.getUserHandType(), PreferencesData::LeftHanded);
    QCOMPARE(preferences.getViewType(), PreferencesData::ToggleViewOn);
    QCOMPARE(preferences.getFindType(), PreferencesData::FindAsYouType);
    QCOMPARE(preferences.getComboPosition(), PreferencesData::Top);
    QCOMPARE(preferences.getMenuPosition(), PreferencesData::Top);
    QVERIFY(words(preferences).isEmpty());
    QVERIFY(preferences.getLastOpenFile().isEmpty());
}

void PreferencesTest::fileIsWrittenWhenTheRecordDies()
{
    { // the defaults of a first start
        const PreferencesData preferences;
    }
    const QString group = u"ViewPreferences"_s;
    const QList<std::pair<QString, QString>> expected{
        {u"PanelView"_s, u"1"_s},        {u"UserHandType"_s, u"0"_s},  {u"FontSize"_s, u"12"_s},
        {u"FontName"_s, u"helvetica"_s}, {u"ViewType"_s, u"1"_s},      {u"FindType"_s, u"0"_s},
        {u"LastOpenFile"_s, QString()},  {u"ComboPosition"_s, u"0"_s}, {u"MenuPosition"_s, u"0"_s},
    };
    for (const auto& [key, value] : expected)
        QCOMPARE(stored(group, key), value);
    QCOMPARE(stored(u"MRU List"_s, u"List0"_s), u"(missing)"_s);
}

void PreferencesTest::settersDoNotWriteTheFile()
{
    stage("[ViewPreferences]\nPanelView = 1\n");
    PreferencesData preferences;
    preferences.setLayout(PreferencesData::Horizontal);
    preferences.setLastOpenFile(u"/a.PDB"_s);
    preferences.addToMRUList(u"word"_s);
    QCOMPARE(stored(u"ViewPreferences"_s, u"PanelView"_s), u"1"_s);
    QCOMPARE(stored(u"MRU List"_s, u"List0"_s), u"(missing)"_s);
}

void PreferencesTest::everySettingSurvivesARestart()
{
    const QString path = u"/media/my card/ж/a=b [x].PDB"_s;
    {
        PreferencesData preferences;
        preferences.setLayout(PreferencesData::Horizontal);
        preferences.setUserHandType(PreferencesData::RightHanded);
        preferences.setViewType(PreferencesData::ToggleViewOff);
        preferences.setFindType(PreferencesData::FindOnEnter);
        preferences.setComboPosition(PreferencesData::Bottom);
        preferences.setMenuPosition(PreferencesData::Bottom);
        preferences.setLastOpenFile(path);
        add(preferences, {u"one"_s, u"two"_s});
    }
    const PreferencesData preferences;
    QCOMPARE(preferences.getLayout(), PreferencesData::Horizontal);
    QCOMPARE(preferences.getUserHandType(), PreferencesData::RightHanded);
    QCOMPARE(preferences.getViewType(), PreferencesData::ToggleViewOff);
    QCOMPARE(preferences.getFindType(), PreferencesData::FindOnEnter);
    QCOMPARE(preferences.getComboPosition(), PreferencesData::Bottom);
    QCOMPARE(preferences.getMenuPosition(), PreferencesData::Bottom);
    QCOMPARE(preferences.getLastOpenFile(), path);
    QCOMPARE(words(preferences), (QByteArrayList{"one", "two"}));
}

void PreferencesTest::everyKeyLoadsIntoItsOwnField()
{
    stage("[ViewPreferences]\nPanelView = 10\nUserHandType = 11\nViewType = 12\nFindType = 13\n"
          "ComboPosition = 14\nMenuPosition = 15\nLastOpenFile = /x.PDB\n");
    const PreferencesData preferences;
    QCOMPARE(static_cast<int>(preferences.getLayout()), 10);
    QCOMPARE(static_cast<int>(preferences.getUserHandType()), 11);
    QCOMPARE(static_cast<int>(preferences.getViewType()), 12);
    QCOMPARE(static_cast<int>(preferences.getFindType()), 13);
    QCOMPARE(static_cast<int>(preferences.getComboPosition()), 14);
    QCOMPARE(static_cast<int>(preferences.getMenuPosition()), 15);
    QCOMPARE(preferences.getLastOpenFile(), u"/x.PDB"_s);
}

void PreferencesTest::numbersWithoutANameAreKept()
{
    stage("[ViewPreferences]\nPanelView = 7\n");
    {
        const PreferencesData preferences;
        QCOMPARE(static_cast<int>(preferences.getLayout()), 7);
        QVERIFY(preferences.getLayout() != PreferencesData::Vertical);
    }
    QCOMPARE(stored(u"ViewPreferences"_s, u"PanelView"_s), u"7"_s);
}

void PreferencesTest::emptyWordsLeaveNoGap()
{
    stage("[MRU List]\nList0 =\nList1 = alpha\nList3 = beta\n");
    QCOMPARE(words(PreferencesData()), (QByteArrayList{"alpha", "beta"}));
}

void PreferencesTest::storedWordsWhollyOutsideLatin1LeaveNoGap()
{
    stage("[MRU List]\nList0 = \xd0\xb6\xd1\x83\xd0\xba\nList1 = alpha\n"
          "List2 = \xe2\x82\xac\nList3 = be\xd1\x82\xd0\xb0\n");
    QCOMPARE(words(PreferencesData()), (QByteArrayList{"alpha", "be"}));
}

void PreferencesTest::wordsBeyondTheSixthKeyAreNotRead()
{
    stage("[MRU List]\nList0 = a\nList1 = b\nList2 = c\nList3 = d\nList4 = e\nList5 = f\n"
          "List6 = g\n");
    QCOMPARE(words(PreferencesData()), (QByteArrayList{"a", "b", "c", "d", "e", "f"}));
}

void PreferencesTest::newWordsGoToTheEndUntilSixAreHeldThenToTheFront()
{
    PreferencesData preferences;
    for (int number = 1; number <= 6; ++number)
        preferences.addToMRUList(u"w%1"_s.arg(number));
    QCOMPARE(words(preferences), (QByteArrayList{"w1", "w2", "w3", "w4", "w5", "w6"}));
    preferences.addToMRUList(u"w7"_s);
    const QByteArrayList full{"w7", "w1", "w2", "w3", "w4", "w5"};
    QCOMPARE(words(preferences), full);
    preferences.addToMRUList(u"w3"_s);
    QCOMPARE(words(preferences), full);
}

void PreferencesTest::wordInAnotherCaseIsNew()
{
    PreferencesData preferences;
    add(preferences, {u"Haus"_s, u"haus"_s, u"Haus"_s});
    QCOMPARE(words(preferences), (QByteArrayList{"Haus", "haus"}));
}

void PreferencesTest::wordEndsAtTheFirstCharacterOutsideLatin1_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArray>("held");
    QTest::newRow("latin 1") << u"\u00c4rger\u00ff"_s << QByteArray("\xc4rger\xff");
    QTest::newRow("first beyond") << u"a\u0100b"_s << QByteArray("a");
    QTest::newRow("euro") << u"5 \u20ac"_s << QByteArray("5 ");
    QTest::newRow("surrogates") << u"x\U0001f600y"_s << QByteArray("x");
    QTest::newRow("nothing left") << u"жук"_s << QByteArray("");
    QTest::newRow("zero") << u"a\0b"_s << QByteArray("a");
}

void PreferencesTest::wordEndsAtTheFirstCharacterOutsideLatin1()
{
    QFETCH(const QString, word);
    QFETCH(const QByteArray, held);
    PreferencesData preferences;
    preferences.addToMRUList(word);
    QCOMPARE(words(preferences), QByteArrayList{held});
}

void PreferencesTest::latin1WordsSurviveARestart()
{
    const QByteArrayList held{"\xc4rger", "caf\xe9"};
    {
        PreferencesData preferences;
        add(preferences, {u"Ärger"_s, u"café"_s});
    }
    QCOMPARE(words(PreferencesData()), held);
}

void PreferencesTest::loadReplacesTheWords()
{
    stage("[MRU List]\nList0 = alpha\n");
    PreferencesData preferences;
    preferences.addToMRUList(u"beta"_s);
    preferences.load();
    QCOMPARE(words(preferences), QByteArrayList{"alpha"});
}

void PreferencesTest::savedWordsLeaveKeysBeyondThemAlone()
{
    stage("[MRU List]\nList0 = alpha\nList3 = beta\n");
    PreferencesData().save();
    const QString group = u"MRU List"_s;
    QCOMPARE(stored(group, u"List0"_s), u"alpha"_s);
    QCOMPARE(stored(group, u"List1"_s), u"beta"_s);
    QCOMPARE(stored(group, u"List2"_s), u"(missing)"_s);
    QCOMPARE(stored(group, u"List3"_s), u"beta"_s);
}

void PreferencesTest::dictionaryWithoutAGroupGetsTheDefaultFont()
{
    PreferencesData preferences;
    preferences.setDefaultFont(QFont(u"courier"_s, 17));
    const QFont font = preferences.getFont(u"/nowhere/Eng2Ger.PDB"_s);
    QCOMPARE(font.pointSize(), 17);
    QCOMPARE(font.family(), u"courier"_s);
    preferences.save();
    const QString group = u"ViewPreferences"_s;
    QCOMPARE(stored(group, u"FontSize"_s), u"17"_s);
    QCOMPARE(stored(group, u"FontName"_s), u"courier"_s);
}

void PreferencesTest::fetchedFontBecomesTheGlobalOne()
{
    stage("[/a.PDB]\nFontName = times\nFontSize = 9\n[ViewPreferences]\nFontSize = 20\n");
    {
        PreferencesData preferences;
        const QFont font = preferences.getFont(u"/a.PDB"_s);
        QCOMPARE(font.pointSize(), 9);
        QCOMPARE(font.family(), u"times"_s);
    }
    const QString group = u"ViewPreferences"_s;
    QCOMPARE(stored(group, u"FontSize"_s), u"9"_s);
    QCOMPARE(stored(group, u"FontName"_s), u"times"_s);
}

void PreferencesTest::fetchedFontKeepsTheWeightOfTheDefaultFont()
{
    stage("[/a.PDB]\nFontSize = 9\n");
    PreferencesData preferences;
    QFont bold(u"courier"_s, 17, QFont::Bold, true);
    preferences.setDefaultFont(bold);
    bold.setPointSize(9);
    QCOMPARE(preferences.getFont(u"/a.PDB"_s), bold);
}

void PreferencesTest::storedFontIsInTheFileAtOnceAndDoesNotBecomeGlobal()
{
    PreferencesData preferences;
    preferences.setFont(QFont(u"times"_s, 21), u"/card one/b.PDB"_s);
    QCOMPARE(stored(u"/card one/b.PDB"_s, u"FontSize"_s), u"21"_s);
    QCOMPARE(stored(u"/card one/b.PDB"_s, u"FontName"_s), u"times"_s);
    preferences.save();
    QCOMPARE(stored(u"ViewPreferences"_s, u"FontSize"_s), u"12"_s);
    QCOMPARE(preferences.getFont(u"/card one/b.PDB"_s).pointSize(), 21);
}

void PreferencesTest::globalFontSurvivesARestart()
{
    stage("[ViewPreferences]\nFontName = times\nFontSize = 21\n");
    { // No dictionary is opened, so no other font is fetched.
        const PreferencesData preferences;
    }
    const QString group = u"ViewPreferences"_s;
    QCOMPARE(stored(group, u"FontName"_s), u"times"_s);
    QCOMPARE(stored(group, u"FontSize"_s), u"21"_s);
}

void PreferencesTest::fontCanBeStoredUnderTheEmptyName()
{
    PreferencesData preferences;
    preferences.setFont(QFont(u"times"_s, 21), QString());
    QCOMPARE(stored(QString(), u"FontSize"_s), u"21"_s);
    QCOMPARE(preferences.getFont(QString()).pointSize(), 21);
}

void PreferencesTest::fontWrittenAfterTheRecordSavedStandsBesideIt()
{
    PreferencesData preferences;
    preferences.setLastOpenFile(u"/a.PDB"_s);
    preferences.save();
    preferences.setFont(QFont(u"times"_s, 21), u"/a.PDB"_s);
    QCOMPARE(stored(u"ViewPreferences"_s, u"LastOpenFile"_s), u"/a.PDB"_s);
    QCOMPARE(stored(u"/a.PDB"_s, u"FontSize"_s), u"21"_s);
}

void PreferencesTest::fontSetInPixelsIsStoredInPoints()
{
    QFont font(u"times"_s);
    font.setPixelSize(24);
    const int points = QFontInfo(font).pointSize();
    QVERIFY(points > 0);
    PreferencesData preferences;
    preferences.setFont(font, u"/a.PDB"_s);
    QCOMPARE(stored(u"/a.PDB"_s, u"FontSize"_s), QString::number(points));
    preferences.setDefaultFont(font);
    QCOMPARE(preferences.getFont(u"/b.PDB"_s).pointSize(), points);
}

void PreferencesTest::impossibleFontSizeLeavesTheDefault()
{
    stage("[/a.PDB]\nFontSize = -3\n[/b.PDB]\nFontSize = big\n[ViewPreferences]\nFontSize = 0\n");
    PreferencesData preferences;
    preferences.setDefaultFont(QFont(u"courier"_s, 17));
    QCOMPARE(preferences.getFont(u"/a.PDB"_s).pointSize(), 17);
    QCOMPARE(preferences.getFont(u"/b.PDB"_s).pointSize(), 17);
}

void PreferencesTest::garbageFileGivesTheDefaults_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("prose") << QByteArray("these are not settings\nPanelView = 0\n");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("high bytes") << QByteArray(4096, '\xff');
    QTest::newRow("bracket only") << QByteArray("[");
    QTest::newRow("key before any value") << QByteArray("[ViewPreferences\n=\n");
    QTest::newRow("empty values") << QByteArray("[ViewPreferences]\nPanelView =\nViewType =\n");
}

void PreferencesTest::garbageFileGivesTheDefaults()
{
    QFETCH(const QByteArray, content);
    stage(content);
    const PreferencesData preferences;
    QCOMPARE(preferences.getLayout(), PreferencesData::Vertical);
    QCOMPARE(preferences.getViewType(), PreferencesData::ToggleViewOn);
    QCOMPARE(preferences.getFindType(), PreferencesData::FindAsYouType);
    QVERIFY(words(preferences).isEmpty());
    QVERIFY(preferences.getLastOpenFile().isEmpty());
}

void PreferencesTest::unknownGroupsAndKeysStayInTheFile()
{
    stage("[Other]\nColour = blue\n[ViewPreferences]\nFuture = 3\n");
    PreferencesData().save();
    QCOMPARE(stored(u"Other"_s, u"Colour"_s), u"blue"_s);
    QCOMPARE(stored(u"ViewPreferences"_s, u"Future"_s), u"3"_s);
}

void PreferencesTest::wordWithALineFeedCannotForgeASetting()
{
    {
        PreferencesData preferences;
        preferences.addToMRUList(u"word\n[ViewPreferences]\nPanelView = 0"_s);
        preferences.addToMRUList(u"next"_s);
    }
    const PreferencesData preferences;
    QCOMPARE(preferences.getLayout(), PreferencesData::Vertical);
    QCOMPARE(words(preferences).size(), 2);
    QCOMPARE(words(preferences).at(1), QByteArray("next"));
}

void PreferencesTest::unwritableFileIsOneWarning()
{
    // A plain file where the directory should be fails for root too.
    QFile obstacle(_home->filePath(u"teskel"_s));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    const QString message =
        u"The settings cannot be written to %1: the directory cannot be made"_s.arg(fileName());
    QTest::ignoreMessage(QtWarningMsg, qPrintable(message));
    PreferencesData preferences;
    preferences.save();
    QCOMPARE(preferences.getLayout(), PreferencesData::Vertical);
}

QTEST_MAIN(PreferencesTest)
#include "test_preferences.moc"
