// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "settings/fontgroups.h"
#include "settings/preferences.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using teskel::FontGroups;

/// The fonts of dictionaries in the settings file, when there are very many.
class FontGroupsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fontsOfMissingFilesStayWhileThereIsRoom();
    void fontsOfMissingFilesMakeRoom_data();
    void fontsOfMissingFilesMakeRoom();
    void fontsThatWereStoredFirstGoFirst();
    void fontStoredAgainIsNewAgain();
    void groupWithoutAFontGoesFirst();
    void fontsOfPresentFilesStay();
    void fontsOfFilesThatAreGoneFromAPresentDirectoryMakeRoom();
    void whatElseIsInTheFileStays();
    void absurdNumbersAreNone();
    void storingTheNewestFontAgainWritesNothing();
    void everySettingOfAHugeFileIsReadAndItShrinks();

private:
    QString fileName() const { return _home->filePath(u"teskel/Teskel.conf"_s); }
    void stage(const QByteArray& text) const;
    QByteArray stored() const;
    QStringList storedGroups() const;
    static QString missing(int number)
    {
        return u"/missing/%1.PDB"_s.arg(number, 4, 10, QLatin1Char('0'));
    }
    /// Groups of missing files in that order, each with a font.
    static QByteArray missingGroups(int count);

    std::unique_ptr<QTemporaryDir> _home;
};

void FontGroupsTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _home = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    qputenv("XDG_CONFIG_HOME", _home->path().toUtf8());
    qputenv("HOME", _home->path().toUtf8());
}

void FontGroupsTest::stage(const QByteArray& text) const
{
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

QByteArray FontGroupsTest::stored() const
{
    QFile file(fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList FontGroupsTest::storedGroups() const
{
    QStringList names;
    const QList<teskel::ConfigText::Group> groups = teskel::ConfigText(stored()).groups();
    for (const teskel::ConfigText::Group& group : groups) {
        if (group.name.startsWith(u'/'))
            names.append(group.name);
    }
    return names;
}

QByteArray FontGroupsTest::missingGroups(int count)
{
    QByteArray text;
    for (int number = 0; number < count; ++number)
        text += '[' + missing(number).toUtf8() + "]\nFontName = times\nFontSize = 9\n";
    return text;
}

void FontGroupsTest::fontsOfMissingFilesStayWhileThereIsRoom()
{
    stage(missingGroups(FontGroups::most));
    PreferencesData().save();
    QCOMPARE(storedGroups().size(), FontGroups::most);
}

void FontGroupsTest::fontsOfMissingFilesMakeRoom_data()
{
    using Use = void (*)(PreferencesData&);
    QTest::addColumn<Use>("use");
    QTest::addColumn<int>("first"); // that is left
    QTest::newRow("when the settings are saved")
        << Use([](PreferencesData& preferences) { preferences.save(); }) << 100;
    QTest::newRow("when a font is stored") << Use([](PreferencesData& preferences) {
        preferences.setFont(QFont(u"times"_s, 9), u"/new.PDB"_s);
    }) << 101;
    QTest::newRow("when a font is fetched")
        << Use([](PreferencesData& preferences) { preferences.getFont(u"/new.PDB"_s); }) << 101;
}

void FontGroupsTest::fontsOfMissingFilesMakeRoom()
{
    using Use = void (*)(PreferencesData&);
    QFETCH(Use, use);
    QFETCH(int, first);
    stage(missingGroups(static_cast<int>(FontGroups::most) + 100));
    PreferencesData preferences;
    use(preferences);
    QStringList groups = storedGroups();
    QCOMPARE(groups.size(), FontGroups::most);
    QCOMPARE(groups.contains(u"/new.PDB"_s), first == 101);
    groups.removeAll(u"/new.PDB"_s);
    QCOMPARE(groups.constFirst(), missing(first));
}

void FontGroupsTest::fontsThatWereStoredFirstGoFirst()
{
    PreferencesData preferences;
    const int count = static_cast<int>(FontGroups::most) + 3;
    // The file is sorted by name, so the oldest stand at its end.
    for (int number = count; number > 0; --number)
        preferences.setFont(QFont(u"times"_s, 9), missing(number));
    const QStringList groups = storedGroups();
    QCOMPARE(groups.size(), FontGroups::most);
    QVERIFY(groups.contains(missing(1)));
    QVERIFY(groups.contains(missing(count - 3)));
    for (int number = count - 2; number <= count; ++number)
        QVERIFY(!groups.contains(missing(number)));
}

void FontGroupsTest::fontStoredAgainIsNewAgain()
{
    stage(missingGroups(FontGroups::most));
    PreferencesData preferences;
    preferences.setFont(QFont(u"times"_s, 9), missing(0));
    preferences.setFont(QFont(u"times"_s, 9), u"/new.PDB"_s);
    const QStringList groups = storedGroups();
    QVERIFY(groups.contains(missing(0)));
    QVERIFY(!groups.contains(missing(1)));
}

void FontGroupsTest::groupWithoutAFontGoesFirst()
{
    stage(missingGroups(FontGroups::most) + "[/z.PDB]\n");
    PreferencesData().save();
    QVERIFY(storedGroups().contains(missing(0)));
    QVERIFY(!storedGroups().contains(u"/z.PDB"_s));
}

void FontGroupsTest::fontsOfPresentFilesStay()
{
    const QString present = _home->filePath(u"Eng2Ger.PDB"_s);
    QFile file(present);
    QVERIFY(file.open(QIODevice::WriteOnly));
    stage('[' + present.toUtf8() + "]\nFontName = times\nFontSize = 7\n" +
          missingGroups(FontGroups::most));
    PreferencesData preferences;
    preferences.save();
    QCOMPARE(storedGroups().size(), FontGroups::most);
    QCOMPARE(preferences.getFont(present).pointSize(), 7);
}

void FontGroupsTest::fontsOfFilesThatAreGoneFromAPresentDirectoryMakeRoom()
{
    const auto group = [this](const QString& name) {
        return '[' + _home->filePath(name).toUtf8() + "]\nFontSize = 7\n";
    };
    QFile file(_home->filePath(u"Present.PDB"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    stage(group(u"Gone.PDB"_s) + group(u"Present.PDB"_s) + group(u"None/Gone.PDB"_s) +
          missingGroups(FontGroups::most));
    PreferencesData().save();
    const QStringList groups = storedGroups();
    QCOMPARE(groups.size(), FontGroups::most);
    QVERIFY(!groups.contains(_home->filePath(u"Gone.PDB"_s)));
    QVERIFY(groups.contains(_home->filePath(u"Present.PDB"_s)));
    QVERIFY(!groups.contains(_home->filePath(u"None/Gone.PDB"_s)));
    QVERIFY(!groups.contains(missing(0)));
    QVERIFY(groups.contains(missing(1)));
}

void FontGroupsTest::whatElseIsInTheFileStays()
{
    const QByteArray head("# mine\n[Other]\nFontSize = 3\n[/notes]\nColour = blue\n");
    stage(head + "[/missing/0.PDB]\nFontSize = 8\n# of 0\nColour = red\n" +
          missingGroups(FontGroups::most));
    PreferencesData().save();
    const QByteArray text = stored();
    QVERIFY(text.startsWith("# mine\n"));
    QVERIFY(text.contains("[Other]\nFontSize = 3\n[/notes]\nColour = blue\n"));
    QVERIFY(text.contains("[/missing/0.PDB]\n# of 0\nColour = red\n"));
}

void FontGroupsTest::absurdNumbersAreNone()
{
    QByteArray text = missingGroups(FontGroups::most - 3);
    for (const char* number : {"9223372036854775807", "-1", "new"})
        text += QByteArray("[/absurd/") + number + "]\nFontSize = 9\nFontOrder = " + number + '\n';
    stage(text);
    PreferencesData preferences;
    preferences.setFont(QFont(u"times"_s, 9), u"/b.PDB"_s);
    preferences.setFont(QFont(u"times"_s, 9), u"/a.PDB"_s);
    QVERIFY(stored().contains("[/b.PDB]\nFontName = times\nFontOrder = 1\n"));
    QVERIFY(stored().contains("[/a.PDB]\nFontName = times\nFontOrder = 2\n"));
}

void FontGroupsTest::storingTheNewestFontAgainWritesNothing()
{
    PreferencesData preferences;
    preferences.setFont(QFont(u"times"_s, 9), u"/b.PDB"_s);
    preferences.setFont(QFont(u"times"_s, 9), u"/a.PDB"_s);
    const QByteArray before = stored();
    preferences.setFont(QFont(u"times"_s, 9), u"/a.PDB"_s);
    QCOMPARE(stored(), before);
}

/// Such a file grew in years in which nothing was ever removed.
void FontGroupsTest::everySettingOfAHugeFileIsReadAndItShrinks()
{
    stage(missingGroups(40'000) + "[ViewPreferences]\nPanelView = 0\nLastOpenFile = /a.PDB\n");
    QVERIFY(stored().size() > 1'048'576);
    PreferencesData preferences;
    QCOMPARE(preferences.getLayout(), PreferencesData::Horizontal);
    QCOMPARE(preferences.getLastOpenFile(), u"/a.PDB"_s);
    preferences.addToMRUList(u"house"_s);
    preferences.save();
    QVERIFY(stored().contains("List0 = house"));
    QCOMPARE(storedGroups().size(), FontGroups::most);
    QVERIFY(stored().size() < 100'000);
}

QTEST_MAIN(FontGroupsTest)
#include "test_fontgroups.moc"
