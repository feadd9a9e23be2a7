// SPDX-License-Identifier: MIT
#include "platform/config.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ConfigTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void missingFileGivesDefaults();
    void numbers_data();
    void numbers();
    void writesSortedGroupsAndKeys();
    void parsing_data();
    void parsing();
    void linesOfOtherFormsStay_data();
    void linesOfOtherFormsStay();
    void newGroupsGoWhereTheySort_data();
    void newGroupsGoWhereTheySort();
    void newKeysGoWhereTheySort_data();
    void newKeysGoWhereTheySort();
    void removingLeavesWhatIsNoKey_data();
    void removingLeavesWhatIsNoKey();
    void keyMetAgainIsRemovedEverywhere();
    void settingsOfAnEditedFileAreRead();
    void hostileTextsComeBack_data();
    void hostileTextsComeBack();
    void hostileTextsLeaveOtherGroupsAlone();
    void settingAMissingGroupCreatesIt();
    void settingAPresentGroupWritesNothing();
    void writingAnEqualValueWritesNothing();
    void emptyGroupIsAnOrdinaryOne();
    void pathsAreGroupNames();
    void withoutAGroupNothingIsStored();
    void userDomain_data();
    void userDomain();
    void newDirectoryIsPrivate();
    void handheldSettingsAreTakenOverOnce();
    void handheldSettingsDoNotReplacePresentOnes();
    void replacementFollowsALink();
    void replacementMakesTheDirectoryOfALink_data();
    void replacementMakesTheDirectoryOfALink();
    void linksInACircleAreOneWarning();
    void failedReplacementWarnsOnce();
    void garbageGivesDefaults_data();
    void garbageGivesDefaults();
    void groupsAreListedInTheOrderOfTheFile();
    void removingFromGroupsLeavesWhatElseIsInThem_data();
    void removingFromGroupsLeavesWhatElseIsInThem();
    void largeFileIsReadAndWritten();
    void oversizedFileIsKeptAside_data();
    void oversizedFileIsKeptAside();
    void oversizedFileThatCannotBeKeptIsNotReplaced();
    void oversizedFileIsLeftAloneWhileNothingIsWritten();
    void fileThatCannotBeReadIsNotReplaced();
    void pipeInPlaceOfTheFileIsLeftAlone();

private:
    QString path(const QString& name) const { return _directory->filePath(name); }
    void store(const QString& name, const QByteArray& text) const;
    QByteArray stored(const QString& name) const;
    /// What a file of this text holds after the changes.
    QByteArray edited(const QByteArray& text, const std::function<void(Config&)>& edit) const;

    std::unique_ptr<QTemporaryDir> _directory;
};

void ConfigTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    _directory = std::make_unique<QTemporaryDir>();
    qputenv("HOME", path(u"home"_s).toUtf8());
    qputenv("XDG_CONFIG_HOME", path(u"xdg"_s).toUtf8());
}

void ConfigTest::store(const QString& name, const QByteArray& text) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

QByteArray ConfigTest::stored(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray ConfigTest::edited(const QByteArray& text,
                              const std::function<void(Config&)>& edit) const
{
    store(u"a.conf"_s, text);
    {
        Config config(path(u"a.conf"_s), Config::File);
        edit(config);
    }
    return stored(u"a.conf"_s);
}

void ConfigTest::missingFileGivesDefaults()
{
    Config config(path(u"none.conf"_s), Config::File);
    config.setGroup(u"ViewPreferences"_s);
    QVERIFY(!config.hasKey(u"FontName"_s));
    QCOMPARE(config.readEntry(u"FontName"_s, u"helvetica"_s), u"helvetica"_s);
    QVERIFY(config.readEntry(u"FontName"_s).isNull());
    QCOMPARE(config.readNumEntry(u"FontSize"_s), -1);
    QCOMPARE(config.readNumEntry(u"FontSize"_s, 12), 12);
    QVERIFY(config.readBoolEntry(u"Flag"_s, true));
    QVERIFY(!config.readBoolEntry(u"Flag"_s));
}

void ConfigTest::numbers_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("flag");
    QTest::newRow("number") << QByteArray("14") << 14 << true;
    QTest::newRow("negative") << QByteArray("-3") << -3 << true;
    QTest::newRow("zero") << QByteArray("0") << 0 << false;
    QTest::newRow("empty gives the default") << QByteArray() << 77 << true;
    QTest::newRow("garbage gives 0") << QByteArray("large") << 0 << false;
    QTest::newRow("number with garbage gives 0") << QByteArray("12abc") << 0 << false;
    QTest::newRow("too large gives 0") << QByteArray("99999999999") << 0 << false;
}

void ConfigTest::numbers()
{
    QFETCH(QByteArray, value);
    store(u"a.conf"_s, "[g]\nn = " + value + '\n');
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"g"_s);
    QTEST(config.readNumEntry(u"n"_s, 77), "number");
    QTEST(config.readBoolEntry(u"n"_s, true), "flag");
}

void ConfigTest::writesSortedGroupsAndKeys()
{
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(u"ViewPreferences"_s);
        config.writeEntry(u"PanelView"_s, 1);
        config.writeEntry(u"FontName"_s, u"Größe"_s);
        config.setGroup(u"MRU List"_s);
        config.writeEntry(u"List0"_s, u"word"_s);
        config.writeEntry(u"Flag"_s, true);
    }
    QCOMPARE(stored(u"a.conf"_s), QByteArray("[MRU List]\nFlag = 1\nList0 = word\n"
                                             "[ViewPreferences]\nFontName = Gr\xC3\xB6\xC3\x9F"
                                             "e\nPanelView = 1\n"));
}

void ConfigTest::parsing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("value"); // of the key "k" in the group "g"
    QTest::newRow("plain") << QByteArray("[g]\nk = v\n") << u"v"_s;
    QTest::newRow("no blanks") << QByteArray("[g]\nk=v") << u"v"_s;
    QTest::newRow("many blanks") << QByteArray("  [x]\n") << u"(none)"_s;
    QTest::newRow("indented") << QByteArray("[x]\n  [g]  \n\t k \t=  v \n") << u"v"_s;
    QTest::newRow("empty lines") << QByteArray("[g]\n\n\nk = v\n") << u"v"_s;
    QTest::newRow("carriage returns") << QByteArray("[g]\r\nk = v\r\n") << u"v"_s;
    QTest::newRow("second equals sign") << QByteArray("[g]\nk = a = b\n") << u"a = b"_s;
    QTest::newRow("key met again") << QByteArray("[g]\nk = a\nk = v\n") << u"v"_s;
    QTest::newRow("group met again") << QByteArray("[g]\nk = a\n[h]\n[g]\nk = v\n") << u"v"_s;
    QTest::newRow("bad line") << QByteArray("[g]\nk = w\nbad\nk = v\n") << u"v"_s;
    QTest::newRow("comment") << QByteArray("# head\n[g]\n# comment\nk = v\n; end\n") << u"v"_s;
    QTest::newRow("key in a comment") << QByteArray("[g]\nk = v\n#k = w\n;k = w\n") << u"v"_s;
    QTest::newRow("key in front of the groups") << QByteArray("k = w\n[h]\n[g]\nk=v") << u"v"_s;
    QTest::newRow("key of no group") << QByteArray("k = w\n[g]\n") << u"(none)"_s;
    QTest::newRow("unclosed group") << QByteArray("[g\nk = v\n") << u"(none)"_s;
    QTest::newRow("unclosed group in a group") << QByteArray("[g]\nk = v\n[h\nk = w\n") << u"v"_s;
    QTest::newRow("unclosed group in front") << QByteArray("[h\n[g]\nk = v\n") << u"v"_s;
    QTest::newRow("lone bracket") << QByteArray("[\n[g]\nk = v\n") << u"v"_s;
    QTest::newRow("comment behind a group") << QByteArray("[g]\n[h] # x\nk = w\n") << u"(none)"_s;
    QTest::newRow("byte-order mark") << QByteArray("\xEF\xBB\xBF[g]\nk = v\n") << u"v"_s;
    QTest::newRow("bytes that are no UTF-8")
        << QByteArray("\xFF\xFE\n[\xE4]\n\xE4 = \xE4\n[g]\n\xE4\nk = v\n") << u"v"_s;
    QTest::newRow("no UTF-8 in the value") << QByteArray("[g]\nk = a\xE4z\n") << u"a\uFFFDz"_s;
    QTest::newRow("equals sign in a group") << QByteArray("[a=b]\nk = w\n[g]\nk = v\n") << u"v"_s;
}

void ConfigTest::parsing()
{
    QFETCH(QByteArray, text);
    store(u"a.conf"_s, text);
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"g"_s);
    QTEST(config.readEntry(u"k"_s, u"(none)"_s), "value");
}

void ConfigTest::linesOfOtherFormsStay_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written"); // after "new" was written to the key "k" of "g"
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
        QTest::newRow(name) << before << after;
    };
    row("bad line", "[a]\nbad\nx = 1\n[g]\nk = v\nbad\n[z]\ny = 2\n",
        "[a]\nbad\nx = 1\n[g]\nk = new\nbad\n[z]\ny = 2\n");
    row("comments", "# mine\n\n[g] \n; of k\nk = v\n#j = 1\n# end",
        "# mine\n\n[g] \n; of k\nk = new\n#j = 1\n# end\n");
    row("byte-order mark", "\xEF\xBB\xBF[g]\nk = v\n", "\xEF\xBB\xBF[g]\nk = new\n");
    row("byte-order mark in front of a new group", "\xEF\xBB\xBF[h]\nk = v\n",
        "\xEF\xBB\xBF[g]\nk = new\n[h]\nk = v\n");
    row("only a byte-order mark", "\xEF\xBB\xBF", "\xEF\xBB\xBF[g]\nk = new\n");
    row("byte-order mark inside", "[a]\n\xEF\xBB\xBF[g]\nk = v\n",
        "[a]\n\xEF\xBB\xBF[g]\nk = new\n");
    row("carriage returns", "[g]\r\nk = v\r\nl = w\r\n", "[g]\r\nk = new\r\nl = w\r\n");
    row("carriage returns and a new group", "[a]\r\nx = 1", "[a]\r\nx = 1\r\n[g]\r\nk = new\r\n");
    row("carriage returns only", "[g]\rk = v\r", "[g]\rk = v\r\n[g]\nk = new\n");
    row("no last line feed", "[g]\nk = v", "[g]\nk = new\n");
    row("no last line feed and a new group", "[a]\nx = 1", "[a]\nx = 1\n[g]\nk = new\n");
    row("unsorted", "[z]\ny = 2\nx=1\n[g]\nl = w\nk = v\n[a]\n",
        "[z]\ny = 2\nx=1\n[g]\nl = w\nk = new\n[a]\n");
    row("other shapes of keys", "[g]\n  i=1\n\tj  =  2 \nk=v\n",
        "[g]\n  i=1\n\tj  =  2 \nk = new\n");
    row("key met again", "[g]\nk = u\nk = v\n", "[g]\nk = u\nk = new\n");
    row("group met again", "[g]\nk = v\n[h]\n[g]\nl = w\n", "[g]\nk = new\n[h]\n[g]\nl = w\n");
    row("new key of a group met again", "[g]\ni = v\n[h]\n[g]\n",
        "[g]\ni = v\n[h]\n[g]\nk = new\n");
    row("key in front of the groups", "k = v\n[h]\n", "k = v\n[g]\nk = new\n[h]\n");
    row("key in front of no group", "k = v\n", "k = v\n[g]\nk = new\n");
    row("unclosed group", "[g]\n[h\nk = v\n", "[g]\nk = new\n[h\nk = v\n");
    row("unclosed group at the end", "[a]\nx = 1\n[h\nk = v",
        "[a]\nx = 1\n[h\nk = v\n[g]\nk = new\n");
    row("bytes that are no UTF-8", "\xFF\xFE\n[\xE4]\n\xE4 = \xE4\n[g]\nk = \xE4\nl = \xE4\n",
        "\xFF\xFE\n[\xE4]\n\xE4 = \xE4\n[g]\nk = new\nl = \xE4\n");
    row("NUL bytes", QByteArray("\0\0\n[g]\nk = v\n\0", 14),
        QByteArray("\0\0\n[g]\nk = new\n\0\n", 17));
}

void ConfigTest::linesOfOtherFormsStay()
{
    QFETCH(QByteArray, text);
    const QByteArray written = edited(text, [](Config& config) {
        config.setGroup(u"g"_s);
        config.writeEntry(u"k"_s, u"new"_s);
        QCOMPARE(config.readEntry(u"k"_s), u"new"_s);
    });
    QTEST(written, "written");
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"g"_s);
    QCOMPARE(config.readEntry(u"k"_s), u"new"_s);
}

void ConfigTest::newGroupsGoWhereTheySort_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written"); // after the group "g" was selected
    QTest::newRow("first") << QByteArray("[h]\n[i]\n") << QByteArray("[g]\n[h]\n[i]\n");
    QTest::newRow("between") << QByteArray("[a]\n[h]\n") << QByteArray("[a]\n[g]\n[h]\n");
    QTest::newRow("last") << QByteArray("[a]\n[f]\n") << QByteArray("[a]\n[f]\n[g]\n");
    QTest::newRow("unsorted") << QByteArray("[z]\n[a]\n") << QByteArray("[g]\n[z]\n[a]\n");
    QTest::newRow("the head of the file stays its head")
        << QByteArray("# mine\n\n[h]\n") << QByteArray("# mine\n\n[g]\n[h]\n");
    QTest::newRow("a comment stays with the group behind it")
        << QByteArray("[a]\nx = 1\n\n# of h\n[h]\n")
        << QByteArray("[a]\nx = 1\n[g]\n\n# of h\n[h]\n");
    QTest::newRow("a comment at the end stays with the group in front")
        << QByteArray("[a]\nx = 1\n# of x\n") << QByteArray("[a]\nx = 1\n# of x\n[g]\n");
}

void ConfigTest::newGroupsGoWhereTheySort()
{
    QFETCH(QByteArray, text);
    const QByteArray written = edited(text, [](Config& config) { config.setGroup(u"g"_s); });
    QTEST(written, "written");
}

void ConfigTest::newKeysGoWhereTheySort_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written"); // after the key "k" was written to "g"
    QTest::newRow("empty group") << QByteArray("[g]\n[h]\n") << QByteArray("[g]\nk = v\n[h]\n");
    QTest::newRow("first") << QByteArray("[g]\nl = 1\n") << QByteArray("[g]\nk = v\nl = 1\n");
    QTest::newRow("between") << QByteArray("[g]\na = 1\nl = 1\n")
                             << QByteArray("[g]\na = 1\nk = v\nl = 1\n");
    QTest::newRow("last") << QByteArray("[g]\na = 1\n[h]\nb = 1\n")
                          << QByteArray("[g]\na = 1\nk = v\n[h]\nb = 1\n");
    QTest::newRow("a comment stays with the key behind it")
        << QByteArray("[g]\na = 1\n# of l\nl = 1\n")
        << QByteArray("[g]\na = 1\nk = v\n# of l\nl = 1\n");
}

void ConfigTest::newKeysGoWhereTheySort()
{
    QFETCH(QByteArray, text);
    const QByteArray written = edited(text, [](Config& config) {
        config.setGroup(u"g"_s);
        config.writeEntry(u"k"_s, u"v"_s);
    });
    QTEST(written, "written");
}

void ConfigTest::removingLeavesWhatIsNoKey_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("keys alone") << QByteArray("[a]\nk = 1\nl = 2\n[b]\nk = 3\n")
                                << QByteArray("[a]\nl = 2\n[b]\n");
    QTest::newRow("comments and other lines")
        << QByteArray("# head\n[a]\n# of k\nk = 1\nbad\nl = 2\n[b]\n;k = 3\nk = 4\n")
        << QByteArray("# head\n[a]\n# of k\nbad\nl = 2\n[b]\n;k = 3\n");
}

void ConfigTest::removingLeavesWhatIsNoKey()
{
    QFETCH(QByteArray, text);
    const QByteArray written = edited(text, [](Config& config) {
        config.setGroup(u"a"_s);
        config.removeEntry(u"k"_s);
        config.setGroup(u"b"_s);
        config.clearGroup();
    });
    QTEST(written, "written");
}

void ConfigTest::keyMetAgainIsRemovedEverywhere()
{
    const QByteArray written =
        edited("[a]\nk = 1\nk = 2\n[b]\nk = 3\n[a]\nk = 4\n", [](Config& config) {
            config.setGroup(u"a"_s);
            config.removeEntry(u"k"_s);
            QVERIFY(!config.hasKey(u"k"_s));
        });
    QCOMPARE(written, QByteArray("[a]\n[b]\nk = 3\n[a]\n"));
}

/// As an editor of another system leaves it.
void ConfigTest::settingsOfAnEditedFileAreRead()
{
    store(u"a.conf"_s,
          "\xEF\xBB\xBF; my settings\r\n[ViewPreferences]\r\n# was 1\r\nPanelView=0\r\n"
          "whatever\r\n\r\n[MRU List]\r\nList0=word\r\n[/a/Eng2Ger.PDB]\r\nFontSize=9");
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"ViewPreferences"_s);
    QCOMPARE(config.readNumEntry(u"PanelView"_s, 1), 0);
    config.setGroup(u"MRU List"_s);
    QCOMPARE(config.readEntry(u"List0"_s), u"word"_s);
    config.setGroup(u"/a/Eng2Ger.PDB"_s);
    QCOMPARE(config.readNumEntry(u"FontSize"_s), 9);
}

void ConfigTest::hostileTextsComeBack_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("line feed in the value")
        << u"g"_s << u"k"_s << u"a\n[evil]\nk = b"_s << u"a [evil] k = b"_s;
    QTest::newRow("only line feeds") << u"g"_s << u"k"_s << u"\n\n"_s << QString();
    QTest::newRow("outer blanks") << u"g"_s << u"k"_s << u"  a  "_s << u"a"_s;
    QTest::newRow("brackets as value") << u"g"_s << u"k"_s << u"[x]"_s << u"[x]"_s;
    QTest::newRow("line feed in the group") << u"g\nk = x\n[h]"_s << u"k"_s << u"v"_s << u"v"_s;
    QTest::newRow("brackets in the group") << u"a]b[c]"_s << u"k"_s << u"v"_s << u"v"_s;
    QTest::newRow("blanks around the group") << u"  g  "_s << u"k"_s << u"v"_s << u"v"_s;
    QTest::newRow("key like a group") << u"g"_s << u"[k"_s << u"v]"_s << u"v]"_s;
    QTest::newRow("equals sign in the key") << u"g"_s << u"a=b"_s << u"v"_s << u"v"_s;
    QTest::newRow("line feed in the key") << u"g"_s << u"a\n[h]"_s << u"v"_s << u"v"_s;
    QTest::newRow("key like a comment") << u"g"_s << u"#k"_s << u"v"_s << u"v"_s;
    QTest::newRow("key like another comment") << u"g"_s << u" ;k"_s << u"v"_s << u"v"_s;
    QTest::newRow("byte-order mark in the key") << u"g"_s << u"\uFEFFk"_s << u"v"_s << u"v"_s;
    QTest::newRow("byte-order mark in the group")
        << u"\uFEFFg"_s << u"k"_s << u"\uFEFFv"_s << u"\uFEFFv"_s;
    QTest::newRow("empty key") << u"g"_s << QString() << u"v"_s << u"v"_s;
    QTest::newRow("carriage return") << u"g"_s << u"k"_s << u"a\rb"_s << u"a\rb"_s;
    QTest::newRow("NUL") << u"g"_s << u"k"_s << QString(u"a\0b"_s) << QString(u"a\0b"_s);
    QTest::newRow("line separator")
        << u"g"_s << u"k"_s << u"a\u2028b\u2029c"_s << u"a\u2028b\u2029c"_s;
}

void ConfigTest::hostileTextsComeBack()
{
    QFETCH(QString, group);
    QFETCH(QString, key);
    QFETCH(QString, value);
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(group);
        config.writeEntry(key, value);
        QTEST(config.readEntry(key), "expected");
    }
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(group);
    QVERIFY(config.hasKey(key));
    QTEST(config.readEntry(key), "expected");
}

void ConfigTest::hostileTextsLeaveOtherGroupsAlone()
{
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(u"ViewPreferences"_s);
        config.writeEntry(u"PanelView"_s, 1);
        config.setGroup(u"A\n[ViewPreferences]\nPanelView = 9\nend"_s);
        config.writeEntry(u"FontSize"_s, 3);
        config.setGroup(u"MRU List"_s);
        config.writeEntry(u"List0"_s, u"w\n[ViewPreferences]\nPanelView = 9\nend"_s);
    }
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"ViewPreferences"_s);
    QCOMPARE(config.readNumEntry(u"PanelView"_s), 1);
}

void ConfigTest::settingAMissingGroupCreatesIt()
{
    const QByteArray written =
        edited("[b]\nk = v\n", [](Config& config) { config.setGroup(u"a"_s); });
    QCOMPARE(written, QByteArray("[a]\n[b]\nk = v\n"));
}

void ConfigTest::settingAPresentGroupWritesNothing()
{
    const QByteArray written = edited("[b]\n  k=v", [](Config& config) {
        config.setGroup(u"b"_s);
        QCOMPARE(config.readEntry(u"k"_s), u"v"_s);
    });
    QCOMPARE(written, QByteArray("[b]\n  k=v"));
}

void ConfigTest::writingAnEqualValueWritesNothing()
{
    const QByteArray written = edited("[b]\n  k=5", [](Config& config) {
        config.setGroup(u"b"_s);
        config.writeEntry(u"k"_s, 5);
    });
    QCOMPARE(written, QByteArray("[b]\n  k=5"));
}

void ConfigTest::emptyGroupIsAnOrdinaryOne()
{
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(QString());
        config.writeEntry(u"FontSize"_s, 14);
        config.setGroup(u"General"_s);
        config.writeEntry(u"FontSize"_s, 10);
    }
    QCOMPARE(stored(u"a.conf"_s), QByteArray("[]\nFontSize = 14\n[General]\nFontSize = 10\n"));
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u""_s);
    QCOMPARE(config.readNumEntry(u"FontSize"_s), 14);
}

void ConfigTest::pathsAreGroupNames()
{
    const QString dictionary = u"/media/card/Q [2], 100% \\x/Eng2Ger.PDB"_s;
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(dictionary);
        config.writeEntry(u"FontName"_s, u"Nimbus Sans [urw]"_s);
    }
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(dictionary);
    QCOMPARE(config.readEntry(u"FontName"_s), u"Nimbus Sans [urw]"_s);
}

void ConfigTest::withoutAGroupNothingIsStored()
{
    Config config(path(u"a.conf"_s), Config::File);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"Config: no group is selected in .*a.conf"_s));
    config.writeEntry(u"k"_s, 1);
    QVERIFY(!config.hasKey(u"k"_s));
    QCOMPARE(config.readNumEntry(u"k"_s, 4), 4);
    QVERIFY(config.write());
    QVERIFY(!QFile::exists(path(u"a.conf"_s)));
}

void ConfigTest::userDomain_data()
{
    QTest::addColumn<QString>("configHome");
    QTest::addColumn<QString>("file");
    QTest::newRow("named directory") << u"%1/xdg"_s << u"xdg/teskel/Teskel.conf"_s;
    QTest::newRow("unset") << QString() << u"home/.config/teskel/Teskel.conf"_s;
    QTest::newRow("relative is ignored") << u"xdg"_s << u"home/.config/teskel/Teskel.conf"_s;
}

void ConfigTest::userDomain()
{
    QFETCH(QString, configHome);
    if (configHome.isEmpty())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", configHome.replace(u"%1"_s, _directory->path()).toUtf8());
    {
        Config config(u"Teskel"_s);
        config.setGroup(u"g"_s);
        config.writeEntry(u"k"_s, 1);
    }
    QFETCH(QString, file);
    QCOMPARE(stored(file), QByteArray("[g]\nk = 1\n"));
}

void ConfigTest::newDirectoryIsPrivate()
{
    Config config(u"Teskel"_s, Config::User);
    config.setGroup(u"g"_s);
    QVERIFY(config.write());
    const auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    QCOMPARE(QFileInfo(path(u"xdg/teskel"_s)).permissions() & others, QFileDevice::Permissions());
}

void ConfigTest::handheldSettingsAreTakenOverOnce()
{
    const QByteArray old("[g]\nk = old\n");
    store(u"home/Settings/Teskel.conf"_s, old);
    {
        Config config(u"Teskel"_s);
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s), u"old"_s);
    }
    QCOMPARE(stored(u"xdg/teskel/Teskel.conf"_s), old);
    store(u"home/Settings/Teskel.conf"_s, "[g]\nk = newer\n");
    Config config(u"Teskel"_s);
    config.setGroup(u"g"_s);
    QCOMPARE(config.readEntry(u"k"_s), u"old"_s);
    QCOMPARE(stored(u"home/Settings/Teskel.conf"_s), QByteArray("[g]\nk = newer\n"));
}

void ConfigTest::handheldSettingsDoNotReplacePresentOnes()
{
    store(u"home/Settings/Teskel.conf"_s, "[g]\nk = old\n");
    store(u"xdg/teskel/Teskel.conf"_s, "");
    Config config(u"Teskel"_s);
    config.setGroup(u"g"_s);
    QVERIFY(!config.hasKey(u"k"_s));
}

void ConfigTest::replacementFollowsALink()
{
    store(u"real.conf"_s, "[g]\nk = 1\n");
    QVERIFY(QFile::link(path(u"real.conf"_s), path(u"link.conf"_s)));
    {
        Config config(path(u"link.conf"_s), Config::File);
        config.setGroup(u"g"_s);
        config.writeEntry(u"k"_s, 2);
    }
    QVERIFY(QFileInfo(path(u"link.conf"_s)).isSymLink());
    QCOMPARE(stored(u"real.conf"_s), QByteArray("[g]\nk = 2\n"));
}

void ConfigTest::replacementMakesTheDirectoryOfALink_data()
{
    QTest::addColumn<QString>("link");   // %1 is the directory of the test
    QTest::addColumn<QString>("target"); // as the link says it
    QTest::addColumn<QString>("file");   // that is written for xdg/teskel/Teskel.conf
    QTest::newRow("file in a missing directory")
        << u"xdg/teskel/Teskel.conf"_s << u"%1/new/real.conf"_s << u"new/real.conf"_s;
    QTest::newRow("file in several missing directories")
        << u"xdg/teskel/Teskel.conf"_s << u"%1/a/b/c/real.conf"_s << u"a/b/c/real.conf"_s;
    QTest::newRow("relative") << u"xdg/teskel/Teskel.conf"_s << u"../../new/real.conf"_s
                              << u"new/real.conf"_s;
    QTest::newRow("missing file in a present directory")
        << u"xdg/teskel/Teskel.conf"_s << u"%1/xdg/real.conf"_s << u"xdg/real.conf"_s;
    QTest::newRow("directory") << u"xdg/teskel"_s << u"%1/new"_s << u"new/Teskel.conf"_s;
    QTest::newRow("directory with a slash")
        << u"xdg/teskel"_s << u"%1/new/"_s << u"new/Teskel.conf"_s;
    QTest::newRow("directory above") << u"xdg"_s << u"%1/new"_s << u"new/teskel/Teskel.conf"_s;
}

void ConfigTest::replacementMakesTheDirectoryOfALink()
{
    QFETCH(QString, link);
    QFETCH(QString, target);
    QFETCH(QString, file);
    link = path(link);
    QVERIFY(QDir().mkpath(QFileInfo(link).path()));
    const QByteArray said = target.replace(u"%1"_s, _directory->path()).toUtf8();
    QCOMPARE(::symlink(said.constData(), link.toUtf8().constData()), 0);
    Config config(u"Teskel"_s);
    config.setGroup(u"g"_s);
    QVERIFY(config.write());
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(stored(file), QByteArray("[g]\n"));
    QCOMPARE(stored(u"xdg/teskel/Teskel.conf"_s), QByteArray("[g]\n"));
}

void ConfigTest::linksInACircleAreOneWarning()
{
    QVERIFY(QFile::link(u"b.conf"_s, path(u"a.conf"_s)));
    QVERIFY(QFile::link(u"a.conf"_s, path(u"b.conf"_s)));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/a.conf"_s));
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(u"g"_s);
    }
    QVERIFY(QFileInfo(path(u"a.conf"_s)).isSymLink());
}

void ConfigTest::failedReplacementWarnsOnce()
{
    // A file in the place of the directory stops root as well.
    store(u"xdg/teskel"_s, "not a directory");
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(u"The settings cannot be written to .*/teskel/Teskel.conf"_s));
    for (int i = 0; i < 3; ++i) {
        Config config(u"Teskel"_s);
        config.setGroup(u"g"_s);
        config.writeEntry(u"k"_s, i);
        QVERIFY(!config.write());
    }
    QCOMPARE(stored(u"xdg/teskel"_s), QByteArray("not a directory"));
}

void ConfigTest::garbageGivesDefaults_data()
{
    QTest::addColumn<QByteArray>("text");
    QByteArray noise(100'000, Qt::Uninitialized);
    QRandomGenerator generator(7);
    for (char& byte : noise)
        byte = static_cast<char>(generator.bounded(256));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("random bytes") << noise;
    QTest::newRow("random bytes after a bracket") << '[' + noise;
    QTest::newRow("NUL bytes") << QByteArray(5000, '\0');
    QTest::newRow("half a character") << QByteArray("[g\xC3");
    QTest::newRow("only brackets") << QByteArray(50'000, '[');
}

void ConfigTest::garbageGivesDefaults()
{
    QFETCH(QByteArray, text);
    store(u"a.conf"_s, text);
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s, u"default"_s), u"default"_s);
        config.writeEntry(u"k"_s, u"kept"_s);
    }
    Config config(path(u"a.conf"_s), Config::File);
    config.setGroup(u"g"_s);
    QCOMPARE(config.readEntry(u"k"_s), u"kept"_s);
}

void ConfigTest::groupsAreListedInTheOrderOfTheFile()
{
    store(u"a.conf"_s, "x = 0\n[z]\nk = 1\n[a]\n[z]\nk = 2\nl = 3\n[]\nk = 4\n");
    const Config config(path(u"a.conf"_s), Config::File);
    QStringList found;
    const QList<teskel::ConfigText::Group> groups = config.groups();
    for (const teskel::ConfigText::Group& group : groups) {
        QStringList keys = group.values.keys();
        keys.sort();
        found.append(group.name + u':' + keys.join(u','));
    }
    QCOMPARE(found, QStringList({u"z:k,l"_s, u"a:"_s, u":k"_s}));
    QCOMPARE(groups.constFirst().values.value(u"k"_s), u"2"_s);
}

void ConfigTest::removingFromGroupsLeavesWhatElseIsInThem_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("written"); // without "k" and "l" of "a", "b" and "none"
    const auto row = [](const char* name, const QByteArray& before, const QByteArray& after) {
        QTest::newRow(name) << before << after;
    };
    row("nothing else", "[a]\nk = 1\nl = 2\n[b]\nl = 3\n[c]\nk = 4\n", "[c]\nk = 4\n");
    row("no key", "[a]\n[b]\n[c]\n", "[c]\n");
    row("another key", "[a]\nk = 1\nm = 2\n[c]\nk = 4\n", "[a]\nm = 2\n[c]\nk = 4\n");
    row("group met again", "[a]\nk = 1\n[c]\nk = 4\n[a]\nl = 2\n", "[c]\nk = 4\n");
    row("another key of a group met again", "[a]\nk = 1\n[c]\nk = 4\n[a]\nm = 2\n",
        "[a]\n[c]\nk = 4\n[a]\nm = 2\n");
    row("comments and other lines", "# mine\n[c]\nk = 4\n\n# of a\n[a]\nk = 1\n;l = 2\nbad\n",
        "# mine\n[c]\nk = 4\n\n# of a\n;l = 2\nbad\n");
    row("nothing to remove", "[c]\n  k=4", "[c]\n  k=4");
}

void ConfigTest::removingFromGroupsLeavesWhatElseIsInThem()
{
    QFETCH(QByteArray, text);
    const QByteArray written = edited(text, [](Config& config) {
        config.removeFromGroups({u"a"_s, u"b"_s, u"none"_s}, {u"k"_s, u"l"_s});
    });
    QTEST(written, "written");
}

void ConfigTest::largeFileIsReadAndWritten()
{
    const QByteArray head("[g]\nk = v\n");
    const QByteArray text = head + QByteArray(Config::largestFile - head.size(), '\n');
    const QByteArray written = edited(text, [](Config& config) {
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s), u"v"_s);
        config.writeEntry(u"k"_s, u"w"_s);
    });
    QCOMPARE(written, "[g]\nk = w\n" + text.sliced(head.size()));
}

void ConfigTest::oversizedFileIsKeptAside_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("backup");
    QTest::addColumn<bool>("isLink");
    QTest::newRow("for the first time") << QStringList() << u"a%1.conf.backup1"_s << false;
    QTest::newRow("again") << QStringList({u"a%1.conf.backup1"_s, u"a%1.conf.backup2"_s})
                           << u"a%1.conf.backup3"_s << false;
    QTest::newRow("through a link") << QStringList() << u"real.conf.backup1"_s << true;
}

void ConfigTest::oversizedFileIsKeptAside()
{
    QFETCH(QStringList, taken);
    QFETCH(QString, backup);
    QFETCH(bool, isLink);
    const QByteArray text = "[g]\nk = v\n" + QByteArray(Config::largestFile, '\n');
    const QString name = u"a%1.conf"_s;
    store(isLink ? u"real.conf"_s : name, text);
    if (isLink)
        QVERIFY(QFile::link(path(u"real.conf"_s), path(name)));
    for (const QString& other : std::as_const(taken))
        store(other, "another");
    const QString warning = u"The settings in %1 are too large to be read; they are kept as %2"_s;
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning.arg(path(name), path(backup))));
    for (int i = 0; i < 2; ++i) {
        Config config(path(name), Config::File);
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s, u"default"_s), i == 0 ? u"default"_s : u"0"_s);
        config.writeEntry(u"k"_s, i);
        QVERIFY(config.write());
    }
    QCOMPARE(stored(backup), text);
    QCOMPARE(stored(name), QByteArray("[g]\nk = 1\n"));
    for (const QString& other : std::as_const(taken))
        QCOMPARE(stored(other), QByteArray("another"));
    QCOMPARE(QFileInfo(path(name)).isSymLink(), isLink);
}

void ConfigTest::oversizedFileThatCannotBeKeptIsNotReplaced()
{
    // A name of the greatest length has no room for more.
    const QString name(255, u'a');
    const QByteArray text(Config::largestFile + 1, '\n');
    store(name, text);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*kept aside"_s));
    {
        Config config(path(name), Config::File);
        config.setGroup(u"g"_s);
        QVERIFY(!config.write());
    }
    QCOMPARE(stored(name), text);
}

void ConfigTest::oversizedFileIsLeftAloneWhileNothingIsWritten()
{
    store(u"a.conf"_s, QByteArray(Config::largestFile + 1, '\n'));
    {
        const Config config(path(u"a.conf"_s), Config::File);
    }
    QCOMPARE(QDir(_directory->path()).entryList(QDir::Files), QStringList(u"a.conf"_s));
}

/// A file that may be written but not read.
void ConfigTest::fileThatCannotBeReadIsNotReplaced()
{
    constexpr uid_t other = 65'534;
    const QByteArray text("[g]\nk = v\n");
    store(u"a.conf"_s, text);
    const QByteArray file = path(u"a.conf"_s).toUtf8();
    QCOMPARE(::chmod(file.constData(), 0200), 0);
    QCOMPARE(::chmod(_directory->path().toUtf8().constData(), 0777), 0);
    const uid_t own = ::geteuid();
    if (own == 0) {
        QCOMPARE(::chown(file.constData(), other, other), 0);
        QCOMPARE(::seteuid(other), 0);
    }
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/a.conf"_s));
    {
        Config config(path(u"a.conf"_s), Config::File);
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s, u"default"_s), u"default"_s);
        config.writeEntry(u"k"_s, u"lost"_s);
    }
    QCOMPARE(::seteuid(own), 0);
    QCOMPARE(::chmod(file.constData(), 0600), 0);
    QCOMPARE(stored(u"a.conf"_s), text);
}

void ConfigTest::pipeInPlaceOfTheFileIsLeftAlone()
{
    const QByteArray pipe = path(u"pipe.conf"_s).toUtf8();
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/pipe.conf"_s));
    {
        Config config(path(u"pipe.conf"_s), Config::File);
        QVERIFY(!config.hasKey(u"k"_s));
        config.setGroup(u"g"_s);
    }
    struct stat status = {};
    QCOMPARE(::stat(pipe.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

QTEST_GUILESS_MAIN(ConfigTest)
#include "test_config.moc"
