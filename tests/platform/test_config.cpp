// SPDX-License-Identifier: MIT
#include "platform/config.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>
#include <sys/stat.h>
#include <unistd.h>

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
    void hostileTextsComeBack_data();
    void hostileTextsComeBack();
    void hostileTextsLeaveOtherGroupsAlone();
    void settingAMissingGroupCreatesIt();
    void settingAPresentGroupWritesNothing();
    void writingAnEqualValueWritesNothing();
    void emptyGroupIsAnOrdinaryOne();
    void pathsAreGroupNames();
    void removeAndClear();
    void withoutAGroupNothingIsStored();
    void userDomain_data();
    void userDomain();
    void newDirectoryIsPrivate();
    void handheldSettingsAreTakenOverOnce();
    void handheldSettingsDoNotReplacePresentOnes();
    void replacementFollowsALink();
    void failedReplacementWarnsOnce();
    void garbageGivesDefaults_data();
    void garbageGivesDefaults();
    void oversizedFileIsNotReplaced();
    void fileThatCannotBeReadIsNotReplaced();
    void pipeInPlaceOfTheFileIsLeftAlone();

private:
    QString path(const QString& name) const { return _directory->filePath(name); }
    void store(const QString& name, const QByteArray& text) const;
    QByteArray stored(const QString& name) const;

    std::unique_ptr<QTemporaryDir> _directory;
};

void ConfigTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    _directory = std::make_unique<QTemporaryDir>();
    qputenv("HOME", path(u"home"_qs).toUtf8());
    qputenv("XDG_CONFIG_HOME", path(u"xdg"_qs).toUtf8());
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

void ConfigTest::missingFileGivesDefaults()
{
    Config config(path(u"none.conf"_qs), Config::File);
    config.setGroup(u"ViewPreferences"_qs);
    QVERIFY(!config.hasKey(u"FontName"_qs));
    QCOMPARE(config.readEntry(u"FontName"_qs, u"helvetica"_qs), u"helvetica"_qs);
    QVERIFY(config.readEntry(u"FontName"_qs).isNull());
    QCOMPARE(config.readNumEntry(u"FontSize"_qs), -1);
    QCOMPARE(config.readNumEntry(u"FontSize"_qs, 12), 12);
    QVERIFY(config.readBoolEntry(u"Flag"_qs, true));
    QVERIFY(!config.readBoolEntry(u"Flag"_qs));
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
    store(u"a.conf"_qs, "[g]\nn = " + value + '\n');
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u"g"_qs);
    QTEST(config.readNumEntry(u"n"_qs, 77), "number");
    QTEST(config.readBoolEntry(u"n"_qs, true), "flag");
}

void ConfigTest::writesSortedGroupsAndKeys()
{
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"ViewPreferences"_qs);
        config.writeEntry(u"PanelView"_qs, 1);
        config.writeEntry(u"FontName"_qs, u"Größe"_qs);
        config.setGroup(u"MRU List"_qs);
        config.writeEntry(u"List0"_qs, u"word"_qs);
        config.writeEntry(u"Flag"_qs, true);
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[MRU List]\nFlag = 1\nList0 = word\n"
                                              "[ViewPreferences]\nFontName = Gr\xC3\xB6\xC3\x9F"
                                              "e\nPanelView = 1\n"));
}

void ConfigTest::parsing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("value"); // of the key "k" in the group "g"
    QTest::newRow("plain") << QByteArray("[g]\nk = v\n") << u"v"_qs;
    QTest::newRow("no blanks") << QByteArray("[g]\nk=v") << u"v"_qs;
    QTest::newRow("many blanks") << QByteArray("  [x]\n") << u"(none)"_qs;
    QTest::newRow("indented") << QByteArray("[x]\n  [g]  \n\t k \t=  v \n") << u"v"_qs;
    QTest::newRow("empty lines") << QByteArray("[g]\n\n\nk = v\n") << u"v"_qs;
    QTest::newRow("carriage returns") << QByteArray("[g]\r\nk = v\r\n") << u"v"_qs;
    QTest::newRow("second equals sign") << QByteArray("[g]\nk = a = b\n") << u"a = b"_qs;
    QTest::newRow("key met again") << QByteArray("[g]\nk = a\nk = v\n") << u"v"_qs;
    QTest::newRow("group met again") << QByteArray("[g]\nk = a\n[h]\n[g]\nk = v\n") << u"v"_qs;
    QTest::newRow("reading ends at a bad line")
        << QByteArray("[g]\nk = v\nbad\nk = w\n") << u"v"_qs;
    QTest::newRow("bad line first") << QByteArray("[g]\n# comment\nk = v\n") << u"(none)"_qs;
    QTest::newRow("not a group first") << QByteArray("k = v\n[g]\nk = v\n") << u"(none)"_qs;
    QTest::newRow("unclosed group") << QByteArray("[g\nk = v\n") << u"(none)"_qs;
    QTest::newRow("lone bracket") << QByteArray("[\n[g]\nk = v\n") << u"(none)"_qs;
    QTest::newRow("equals sign in a group") << QByteArray("[a=b]\nk = w\n[g]\nk = v\n") << u"v"_qs;
}

void ConfigTest::parsing()
{
    QFETCH(QByteArray, text);
    store(u"a.conf"_qs, text);
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u"g"_qs);
    QTEST(config.readEntry(u"k"_qs, u"(none)"_qs), "value");
}

void ConfigTest::hostileTextsComeBack_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("line feed in the value")
        << u"g"_qs << u"k"_qs << u"a\n[evil]\nk = b"_qs << u"a [evil] k = b"_qs;
    QTest::newRow("only line feeds") << u"g"_qs << u"k"_qs << u"\n\n"_qs << QString();
    QTest::newRow("outer blanks") << u"g"_qs << u"k"_qs << u"  a  "_qs << u"a"_qs;
    QTest::newRow("brackets as value") << u"g"_qs << u"k"_qs << u"[x]"_qs << u"[x]"_qs;
    QTest::newRow("line feed in the group") << u"g\nk = x\n[h]"_qs << u"k"_qs << u"v"_qs << u"v"_qs;
    QTest::newRow("brackets in the group") << u"a]b[c]"_qs << u"k"_qs << u"v"_qs << u"v"_qs;
    QTest::newRow("blanks around the group") << u"  g  "_qs << u"k"_qs << u"v"_qs << u"v"_qs;
    QTest::newRow("key like a group") << u"g"_qs << u"[k"_qs << u"v]"_qs << u"v]"_qs;
    QTest::newRow("equals sign in the key") << u"g"_qs << u"a=b"_qs << u"v"_qs << u"v"_qs;
    QTest::newRow("line feed in the key") << u"g"_qs << u"a\n[h]"_qs << u"v"_qs << u"v"_qs;
    QTest::newRow("empty key") << u"g"_qs << QString() << u"v"_qs << u"v"_qs;
    QTest::newRow("carriage return") << u"g"_qs << u"k"_qs << u"a\rb"_qs << u"a\rb"_qs;
    QTest::newRow("NUL") << u"g"_qs << u"k"_qs << QString(u"a\0b"_qs) << QString(u"a\0b"_qs);
    QTest::newRow("line separator")
        << u"g"_qs << u"k"_qs << u"a\u2028b\u2029c"_qs << u"a\u2028b\u2029c"_qs;
}

void ConfigTest::hostileTextsComeBack()
{
    QFETCH(QString, group);
    QFETCH(QString, key);
    QFETCH(QString, value);
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(group);
        config.writeEntry(key, value);
        QTEST(config.readEntry(key), "expected");
    }
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(group);
    QVERIFY(config.hasKey(key));
    QTEST(config.readEntry(key), "expected");
}

void ConfigTest::hostileTextsLeaveOtherGroupsAlone()
{
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"ViewPreferences"_qs);
        config.writeEntry(u"PanelView"_qs, 1);
        config.setGroup(u"A\n[ViewPreferences]\nPanelView = 9\nend"_qs);
        config.writeEntry(u"FontSize"_qs, 3);
        config.setGroup(u"MRU List"_qs);
        config.writeEntry(u"List0"_qs, u"w\n[ViewPreferences]\nPanelView = 9\nend"_qs);
    }
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u"ViewPreferences"_qs);
    QCOMPARE(config.readNumEntry(u"PanelView"_qs), 1);
}

void ConfigTest::settingAMissingGroupCreatesIt()
{
    store(u"a.conf"_qs, "[b]\nk = v\n");
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"a"_qs);
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[a]\n[b]\nk = v\n"));
}

void ConfigTest::settingAPresentGroupWritesNothing()
{
    store(u"a.conf"_qs, "[b]\n  k=v");
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"b"_qs);
        QCOMPARE(config.readEntry(u"k"_qs), u"v"_qs);
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[b]\n  k=v"));
}

void ConfigTest::writingAnEqualValueWritesNothing()
{
    store(u"a.conf"_qs, "[b]\n  k=5");
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"b"_qs);
        config.writeEntry(u"k"_qs, 5);
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[b]\n  k=5"));
}

void ConfigTest::emptyGroupIsAnOrdinaryOne()
{
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(QString());
        config.writeEntry(u"FontSize"_qs, 14);
        config.setGroup(u"General"_qs);
        config.writeEntry(u"FontSize"_qs, 10);
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[]\nFontSize = 14\n[General]\nFontSize = 10\n"));
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u""_qs);
    QCOMPARE(config.readNumEntry(u"FontSize"_qs), 14);
}

void ConfigTest::pathsAreGroupNames()
{
    const QString dictionary = u"/media/card/Q [2], 100% \\x/Eng2Ger.PDB"_qs;
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(dictionary);
        config.writeEntry(u"FontName"_qs, u"Nimbus Sans [urw]"_qs);
    }
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(dictionary);
    QCOMPARE(config.readEntry(u"FontName"_qs), u"Nimbus Sans [urw]"_qs);
}

void ConfigTest::removeAndClear()
{
    store(u"a.conf"_qs, "[a]\nk = 1\nl = 2\n[b]\nk = 3\n");
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"a"_qs);
        config.removeEntry(u"k"_qs);
        config.setGroup(u"b"_qs);
        config.clearGroup();
    }
    QCOMPARE(stored(u"a.conf"_qs), QByteArray("[a]\nl = 2\n[b]\n"));
}

void ConfigTest::withoutAGroupNothingIsStored()
{
    Config config(path(u"a.conf"_qs), Config::File);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"Config: no group is selected in .*a.conf"_qs));
    config.writeEntry(u"k"_qs, 1);
    QVERIFY(!config.hasKey(u"k"_qs));
    QCOMPARE(config.readNumEntry(u"k"_qs, 4), 4);
    QVERIFY(config.write());
    QVERIFY(!QFile::exists(path(u"a.conf"_qs)));
}

void ConfigTest::userDomain_data()
{
    QTest::addColumn<QString>("configHome");
    QTest::addColumn<QString>("file");
    QTest::newRow("named directory") << u"%1/xdg"_qs << u"xdg/teskel/Teskel.conf"_qs;
    QTest::newRow("unset") << QString() << u"home/.config/teskel/Teskel.conf"_qs;
    QTest::newRow("relative is ignored") << u"xdg"_qs << u"home/.config/teskel/Teskel.conf"_qs;
}

void ConfigTest::userDomain()
{
    QFETCH(QString, configHome);
    if (configHome.isEmpty())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", configHome.replace(u"%1"_qs, _directory->path()).toUtf8());
    {
        Config config(u"Teskel"_qs);
        config.setGroup(u"g"_qs);
        config.writeEntry(u"k"_qs, 1);
    }
    QFETCH(QString, file);
    QCOMPARE(stored(file), QByteArray("[g]\nk = 1\n"));
}

void ConfigTest::newDirectoryIsPrivate()
{
    Config config(u"Teskel"_qs, Config::User);
    config.setGroup(u"g"_qs);
    QVERIFY(config.write());
    const auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    QCOMPARE(QFileInfo(path(u"xdg/teskel"_qs)).permissions() & others, QFileDevice::Permissions());
}

void ConfigTest::handheldSettingsAreTakenOverOnce()
{
    const QByteArray old("[g]\nk = old\n");
    store(u"home/Settings/Teskel.conf"_qs, old);
    {
        Config config(u"Teskel"_qs);
        config.setGroup(u"g"_qs);
        QCOMPARE(config.readEntry(u"k"_qs), u"old"_qs);
    }
    QCOMPARE(stored(u"xdg/teskel/Teskel.conf"_qs), old);
    store(u"home/Settings/Teskel.conf"_qs, "[g]\nk = newer\n");
    Config config(u"Teskel"_qs);
    config.setGroup(u"g"_qs);
    QCOMPARE(config.readEntry(u"k"_qs), u"old"_qs);
    QCOMPARE(stored(u"home/Settings/Teskel.conf"_qs), QByteArray("[g]\nk = newer\n"));
}

void ConfigTest::handheldSettingsDoNotReplacePresentOnes()
{
    store(u"home/Settings/Teskel.conf"_qs, "[g]\nk = old\n");
    store(u"xdg/teskel/Teskel.conf"_qs, "");
    Config config(u"Teskel"_qs);
    config.setGroup(u"g"_qs);
    QVERIFY(!config.hasKey(u"k"_qs));
}

void ConfigTest::replacementFollowsALink()
{
    store(u"real.conf"_qs, "[g]\nk = 1\n");
    QVERIFY(QFile::link(path(u"real.conf"_qs), path(u"link.conf"_qs)));
    {
        Config config(path(u"link.conf"_qs), Config::File);
        config.setGroup(u"g"_qs);
        config.writeEntry(u"k"_qs, 2);
    }
    QVERIFY(QFileInfo(path(u"link.conf"_qs)).isSymLink());
    QCOMPARE(stored(u"real.conf"_qs), QByteArray("[g]\nk = 2\n"));
}

void ConfigTest::failedReplacementWarnsOnce()
{
    // A file in the place of the directory stops root as well.
    store(u"xdg/teskel"_qs, "not a directory");
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(u"The settings cannot be written to .*/teskel/Teskel.conf"_qs));
    for (int i = 0; i < 3; ++i) {
        Config config(u"Teskel"_qs);
        config.setGroup(u"g"_qs);
        config.writeEntry(u"k"_qs, i);
        QVERIFY(!config.write());
    }
    QCOMPARE(stored(u"xdg/teskel"_qs), QByteArray("not a directory"));
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
    store(u"a.conf"_qs, text);
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"g"_qs);
        QCOMPARE(config.readEntry(u"k"_qs, u"default"_qs), u"default"_qs);
        config.writeEntry(u"k"_qs, u"kept"_qs);
    }
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u"g"_qs);
    QCOMPARE(config.readEntry(u"k"_qs), u"kept"_qs);
}

void ConfigTest::oversizedFileIsNotReplaced()
{
    const QByteArray text = "[g]\nk = v\n" + QByteArray(2'097'152, '\n');
    store(u"a.conf"_qs, text);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/a.conf"_qs));
    Config config(path(u"a.conf"_qs), Config::File);
    config.setGroup(u"g"_qs);
    QCOMPARE(config.readEntry(u"k"_qs, u"default"_qs), u"default"_qs);
    config.writeEntry(u"k"_qs, u"lost"_qs);
    QVERIFY(!config.write());
    QCOMPARE(stored(u"a.conf"_qs), text);
}

/// A file that may be written but not read.
void ConfigTest::fileThatCannotBeReadIsNotReplaced()
{
    constexpr uid_t other = 65'534;
    const QByteArray text("[g]\nk = v\n");
    store(u"a.conf"_qs, text);
    const QByteArray file = path(u"a.conf"_qs).toUtf8();
    QCOMPARE(::chmod(file.constData(), 0200), 0);
    QCOMPARE(::chmod(_directory->path().toUtf8().constData(), 0777), 0);
    const uid_t own = ::geteuid();
    if (own == 0) {
        QCOMPARE(::chown(file.constData(), other, other), 0);
        QCOMPARE(::seteuid(other), 0);
    }
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/a.conf"_qs));
    {
        Config config(path(u"a.conf"_qs), Config::File);
        config.setGroup(u"g"_qs);
        QCOMPARE(config.readEntry(u"k"_qs, u"default"_qs), u"default"_qs);
        config.writeEntry(u"k"_qs, u"lost"_qs);
    }
    QCOMPARE(::seteuid(own), 0);
    QCOMPARE(::chmod(file.constData(), 0600), 0);
    QCOMPARE(stored(u"a.conf"_qs), text);
}

void ConfigTest::pipeInPlaceOfTheFileIsLeftAlone()
{
    const QByteArray pipe = path(u"pipe.conf"_qs).toUtf8();
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to .*/pipe.conf"_qs));
    {
        Config config(path(u"pipe.conf"_qs), Config::File);
        QVERIFY(!config.hasKey(u"k"_qs));
        config.setGroup(u"g"_qs);
    }
    struct stat status = {};
    QCOMPARE(::stat(pipe.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

QTEST_GUILESS_MAIN(ConfigTest)
#include "test_config.moc"
