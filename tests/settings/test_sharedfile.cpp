// SPDX-License-Identifier: MIT
#include "platform/configtext.h"
#include "settings/preferences.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// How the settings file of a test is not there, or not to be read, when a reader starts.
enum class Absence {
    NoDirectory,
    NoFile,
    NotReadable, ///< by root neither
    OtherDisk,   ///< with a file that was begun where the right one is mounted later
};

const QByteArray allSettings("[/a.PDB]\nFontName = times\nFontSize = 20\n"
                             "[MRU List]\nList0 = alpha\nList1 = beta\n"
                             "[ViewPreferences]\nComboPosition = 1\nFindType = 1\n"
                             "FontName = courier\nFontSize = 20\nLastOpenFile = /old.PDB\n"
                             "MenuPosition = 1\nPanelView = 0\nUserHandType = 1\nViewType = 0\n");

} // namespace

/// A settings file that comes back, or that others write, while a reader runs.
class SharedFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void whatWasNotReadIsNotOverwritten_data();
    void whatWasNotReadIsNotOverwritten();
    void whatWasChangedIsWritten_data();
    void whatWasChangedIsWritten();
    void fontThatWasNotReadIsNotOverwritten_data();
    void fontThatWasNotReadIsNotOverwritten();
    void chosenFontIsWritten_data();
    void chosenFontIsWritten();
    void readerThatEndsLastWritesOnlyItsChanges();
    void laterChangeOfTheSameSettingHolds();
    void wordsOfBothReadersStay_data();
    void wordsOfBothReadersStay();
    void lostFileIsWrittenWhole();
    void lostWordsAreWrittenAgain();
    void otherReadersWordsAreLeftInTheirLines();

private:
    QString fileName() const { return _home->filePath(u"teskel/Teskel.conf"_s); }
    void stage(const QByteArray& text) const;
    QByteArray file() const;
    QByteArray stored(const QString& group, const QString& key) const;
    QByteArrayList storedWords() const;
    static void addAbsences();
    /// Makes the file absent.
    void hide(Absence absence) const;
    /// Puts the settings where they should have been.
    void bringBack(Absence absence, const QByteArray& text) const;

    std::unique_ptr<QTemporaryDir> _home;
};

void SharedFileTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    _home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", _home->path().toUtf8());
    qputenv("HOME", _home->path().toUtf8());
}

void SharedFileTest::stage(const QByteArray& text) const
{
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    QFile staged(fileName());
    QVERIFY(staged.open(QIODevice::WriteOnly));
    QCOMPARE(staged.write(text), text.size());
}

QByteArray SharedFileTest::file() const
{
    QFile stored(fileName());
    return stored.open(QIODevice::ReadOnly) ? stored.readAll() : QByteArray();
}

QByteArray SharedFileTest::stored(const QString& group, const QString& key) const
{
    return teskel::ConfigText(file()).value(group, key).value_or(u"(missing)"_s).toUtf8();
}

QByteArrayList SharedFileTest::storedWords() const
{
    QByteArrayList words;
    PreferencesData().fillMRUList(words);
    return words;
}

void SharedFileTest::addAbsences()
{
    QTest::addColumn<Absence>("absence");
    QTest::newRow("no directory") << Absence::NoDirectory;
    QTest::newRow("no file") << Absence::NoFile;
    QTest::newRow("cannot be read") << Absence::NotReadable;
    QTest::newRow("on a disk that is mounted late") << Absence::OtherDisk;
}

void SharedFileTest::hide(Absence absence) const
{
    if (absence == Absence::NoDirectory)
        return;
    QVERIFY(QDir(_home->path()).mkpath(u"teskel"_s));
    if (absence == Absence::NotReadable) {
        QVERIFY(QDir(_home->path()).mkpath(u"teskel/Teskel.conf"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"what is there cannot be read$"_s));
    }
}

void SharedFileTest::bringBack(Absence absence, const QByteArray& text) const
{
    if (absence == Absence::NotReadable)
        QVERIFY(QDir(_home->path()).rmdir(u"teskel/Teskel.conf"_s));
    stage(text);
}

void SharedFileTest::whatWasNotReadIsNotOverwritten_data()
{
    addAbsences();
}

void SharedFileTest::whatWasNotReadIsNotOverwritten()
{
    QFETCH(Absence, absence);
    hide(absence);
    {
        PreferencesData preferences;
        preferences.setDefaultFont(QFont(u"courier"_s, 9));
        preferences.getFont(u"/b.PDB"_s);
        if (absence == Absence::OtherDisk)
            QVERIFY(preferences.save());
        bringBack(absence, allSettings);
    }
    QCOMPARE(file(), allSettings);
}

void SharedFileTest::whatWasChangedIsWritten_data()
{
    addAbsences();
}

void SharedFileTest::whatWasChangedIsWritten()
{
    QFETCH(Absence, absence);
    hide(absence);
    {
        PreferencesData preferences;
        if (absence == Absence::OtherDisk)
            QVERIFY(preferences.save());
        preferences.setLastOpenFile(u"/new.PDB"_s);
        preferences.setViewType(PreferencesData::ToggleViewOff);
        preferences.setLayout(PreferencesData::Horizontal);
        preferences.addToMRUList(u"house"_s);
        bringBack(absence, QByteArray(allSettings).replace("PanelView = 0", "PanelView = 7"));
    }
    QCOMPARE(file(), QByteArray(allSettings)
                         .replace("/old.PDB", "/new.PDB")
                         .replace("List1 = beta\n", "List1 = beta\nList2 = house\n"));
}

void SharedFileTest::fontThatWasNotReadIsNotOverwritten_data()
{
    addAbsences();
}

void SharedFileTest::fontThatWasNotReadIsNotOverwritten()
{
    QFETCH(Absence, absence);
    hide(absence);
    {
        PreferencesData preferences;
        preferences.setDefaultFont(QFont(u"helvetica"_s, 12));
        const QFont shown = preferences.getFont(u"/a.PDB"_s);
        if (absence == Absence::OtherDisk)
            preferences.setFont(shown, u"/a.PDB"_s);
        bringBack(absence, allSettings);
        preferences.setFont(shown, u"/a.PDB"_s); // as the view does when it goes
    }
    QCOMPARE(stored(u"/a.PDB"_s, u"FontSize"_s), "20");
    QCOMPARE(stored(u"/a.PDB"_s, u"FontName"_s), "times");
}

void SharedFileTest::chosenFontIsWritten_data()
{
    addAbsences();
}

void SharedFileTest::chosenFontIsWritten()
{
    QFETCH(Absence, absence);
    hide(absence);
    PreferencesData preferences;
    preferences.setDefaultFont(QFont(u"helvetica"_s, 12));
    QFont chosen = preferences.getFont(u"/a.PDB"_s);
    chosen.setPointSize(31);
    if (absence == Absence::NotReadable) {
        preferences.setFont(chosen, u"/a.PDB"_s);
        QCOMPARE(preferences.getFont(u"/a.PDB"_s).pointSize(), 31);
    }
    bringBack(absence, allSettings);
    if (absence == Absence::NotReadable)
        QVERIFY(preferences.save());
    else
        preferences.setFont(chosen, u"/a.PDB"_s);
    QCOMPARE(stored(u"/a.PDB"_s, u"FontSize"_s), "31");
}

void SharedFileTest::readerThatEndsLastWritesOnlyItsChanges()
{
    stage(allSettings);
    {
        PreferencesData last;
        {
            PreferencesData first;
            first.setLastOpenFile(u"/b.PDB"_s);
            first.setLayout(PreferencesData::Vertical);
            first.addToMRUList(u"gamma"_s);
        }
        last.setMenuPosition(PreferencesData::Top);
    }
    QCOMPARE(file(), QByteArray(allSettings)
                         .replace("/old.PDB", "/b.PDB")
                         .replace("PanelView = 0", "PanelView = 1")
                         .replace("MenuPosition = 1", "MenuPosition = 0")
                         .replace("List1 = beta\n", "List1 = beta\nList2 = gamma\n"));
}

void SharedFileTest::laterChangeOfTheSameSettingHolds()
{
    stage(allSettings);
    {
        PreferencesData one;
        PreferencesData other;
        one.setLastOpenFile(u"/1.PDB"_s);
        QVERIFY(one.save());
        other.setLastOpenFile(u"/2.PDB"_s);
        QVERIFY(other.save());
        QVERIFY(one.save());
        QCOMPARE(stored(u"ViewPreferences"_s, u"LastOpenFile"_s), "/2.PDB");
        one.setLastOpenFile(u"/3.PDB"_s);
        QVERIFY(one.save());
    }
    QCOMPARE(stored(u"ViewPreferences"_s, u"LastOpenFile"_s), "/3.PDB");
}

void SharedFileTest::wordsOfBothReadersStay_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("others"); // added and saved by the other reader first
    QTest::addColumn<QStringList>("own");
    QTest::addColumn<QByteArrayList>("after");
    using Words = QStringList;
    using Bytes = QByteArrayList;
    QTest::newRow("none") << Words{u"a"_s} << Words() << Words() << Bytes{"a"};
    QTest::newRow("own alone") << Words{u"a"_s} << Words() << Words{u"b"_s} << Bytes{"a", "b"};
    QTest::newRow("others alone") << Words{u"a"_s} << Words{u"b"_s} << Words() << Bytes{"a", "b"};
    QTest::newRow("both") << Words{u"a"_s} << Words{u"b"_s} << Words{u"c"_s}
                          << Bytes{"a", "b", "c"};
    QTest::newRow("the same") << Words{u"a"_s} << Words{u"b"_s} << Words{u"b"_s} << Bytes{"a", "b"};
    QTest::newRow("both, until all are full")
        << Words{u"a"_s, u"b"_s, u"c"_s, u"d"_s} << Words{u"e"_s, u"f"_s} << Words{u"g"_s}
        << Bytes{"g", "a", "b", "c", "d", "e"};
    QTest::newRow("both, when all are full")
        << Words{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s} << Words{u"x"_s} << Words{u"y"_s}
        << Bytes{"y", "x", "a", "b", "c", "d"};
    QTest::newRow("more than fit")
        << Words() << Words{u"a"_s} << Words{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s}
        << Bytes{"7", "a", "2", "3", "4", "5"};
}

void SharedFileTest::wordsOfBothReadersStay()
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, others);
    QFETCH(QStringList, own);
    {
        PreferencesData preferences;
        for (const QString& word : std::as_const(before))
            preferences.addToMRUList(word);
    }
    {
        PreferencesData preferences;
        {
            PreferencesData other;
            for (const QString& word : std::as_const(others))
                other.addToMRUList(word);
        }
        for (const QString& word : std::as_const(own))
            preferences.addToMRUList(word);
        QVERIFY(preferences.save());
        QTEST(storedWords(), "after");
    }
    QTEST(storedWords(), "after"); // nothing twice
}

void SharedFileTest::lostFileIsWrittenWhole()
{
    stage(allSettings);
    {
        const PreferencesData preferences;
        QVERIFY(QFile::remove(fileName()));
    }
    QCOMPARE(file(), allSettings.sliced(allSettings.indexOf("[MRU List]")));
}

void SharedFileTest::lostWordsAreWrittenAgain()
{
    stage(allSettings);
    PreferencesData preferences;
    stage("[MRU List]\n");
    QVERIFY(preferences.save());
    QCOMPARE(storedWords(), QByteArrayList({"alpha", "beta"}));
}

void SharedFileTest::otherReadersWordsAreLeftInTheirLines()
{
    stage(allSettings);
    PreferencesData preferences;
    const QByteArray edited("[MRU List]\nList1 = alpha\nList4 = gamma\n");
    stage(edited);
    QVERIFY(preferences.save());
    QVERIFY2(file().startsWith(edited), file().constData());
}

QTEST_MAIN(SharedFileTest)
#include "test_sharedfile.moc"
