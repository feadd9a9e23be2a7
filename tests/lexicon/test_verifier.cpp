// SPDX-License-Identifier: MIT
#include "lexicon/verify/checktable.h"
#include "lexicon/verify/lexiconverifier.h"
#include "tests/lexicon/damagedlexicons.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using namespace teskel::test;

/// One damaged file for each way in which a file can break the format, named after the damage.
class TestVerifier : public QObject
{
    Q_OBJECT

private slots:
    void soundFileIsValid();
    void fileWithoutWordsIsValid();
    void recordThatIsNotReadMayBeEmpty_data();
    void recordThatIsNotReadMayBeEmpty();
    void damage_data();
    void damage();
    void everyCheckHasDamagedFixtures();
    void checkAloneFindsItsDamage_data();
    void checkAloneFindsItsDamage();
    void quickChecksLookIntoNoWordRecord_data();
    void quickChecksLookIntoNoWordRecord();
    void needsStandBeforeWhatNeedsThem();
    void unknownCheckIsNotSelected();
    void manualListsEveryCheck();
    void giantRecordIsDamage();
    void unreadableFileIsAnError();
    void directoryIsAnError();

private:
    QStringList findingsOf(const QByteArray& bytes, LexiconVerifier& verifier);
    QStringList findingsOf(const QByteArray& bytes)
    {
        LexiconVerifier verifier;
        return findingsOf(bytes, verifier);
    }
    QTemporaryDir _directory;
};

QStringList TestVerifier::findingsOf(const QByteArray& bytes, LexiconVerifier& verifier)
{
    const QString path = _directory.filePath(u"a.PDB"_s);
    std::string error;
    if (!writeFile(path, bytes) || !verifier.run(path.toStdString(), error))
        return {u"cannot be read"_s};
    QStringList findings;
    for (const Finding& finding : verifier.findings())
        findings += QString::fromStdString(finding.text());
    return findings;
}

void TestVerifier::soundFileIsValid()
{
    QCOMPARE(findingsOf(soundBytes()), QStringList());
    LexiconVerifier verifier;
    std::string error;
    QVERIFY(verifier.run(_directory.filePath(u"a.PDB"_s).toStdString(), error));
    QCOMPARE(verifier.headwords(), std::optional<uint64_t>(4));
    QCOMPARE(verifier.wordRecords(), uint64_t{2});
}

void TestVerifier::fileWithoutWordsIsValid()
{
    QCOMPARE(findingsOf(withDescription(QByteArray("x\0", 2))), QStringList());
}

void TestVerifier::recordThatIsNotReadMayBeEmpty_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("none") << withEmptyRecords({});
    QTest::newRow("record 1") << withEmptyRecords({1});
    QTest::newRow("record 3") << withEmptyRecords({3});
    QTest::newRow("record 4") << withEmptyRecords({4});
    QTest::newRow("all three") << withEmptyRecords({1, 3, 4});
    QTest::newRow("record 4, where the file ends")
        << withDescription(QByteArray("x\0", 2)).chopped(1);
}

void TestVerifier::recordThatIsNotReadMayBeEmpty()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(findingsOf(bytes), QStringList());
}

void TestVerifier::damage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("findings");
    for (const DamagedLexicon& damaged : damagedLexicons())
        QTest::newRow(damaged.name.constData()) << damaged.bytes << damaged.findings;
}

void TestVerifier::damage()
{
    QFETCH(QByteArray, bytes);
    QTEST(findingsOf(bytes), "findings");
}

void TestVerifier::everyCheckHasDamagedFixtures()
{
    QSet<QString> found;
    for (const DamagedLexicon& damaged : damagedLexicons()) {
        for (const QString& finding : damaged.findings)
            found += finding.section(u':', 0, 0);
    }
    for (const Check& check : allChecks())
        QVERIFY2(found.contains(QString::fromUtf8(check.name)), check.name);
    QCOMPARE(found.size(), static_cast<qsizetype>(allChecks().size()));
}

void TestVerifier::checkAloneFindsItsDamage_data()
{
    damage_data();
}

// The checks that it needs hold, or nothing would be found in its name.
void TestVerifier::checkAloneFindsItsDamage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, findings);
    for (const Check& check : allChecks()) {
        const QString name = QString::fromUtf8(check.name) + u':';
        const QStringList expected = findings.filter(QRegularExpression(u'^' + name));
        LexiconVerifier verifier;
        QVERIFY(verifier.select(check.name));
        const QStringList found = findingsOf(bytes, verifier);
        QCOMPARE(found.filter(QRegularExpression(u'^' + name)), expected);
        if (!expected.isEmpty())
            QCOMPARE(found, expected);
    }
}

void TestVerifier::quickChecksLookIntoNoWordRecord_data()
{
    damage_data();
}

void TestVerifier::quickChecksLookIntoNoWordRecord()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, findings);
    const QRegularExpression ofWordRecords(u"^(unpack|layout|keys|order):"_s);
    QStringList expected;
    for (const QString& finding : findings) {
        if (!ofWordRecords.match(finding).hasMatch())
            expected += finding;
    }
    LexiconVerifier verifier;
    verifier.selectQuick();
    QCOMPARE(findingsOf(bytes, verifier), expected);
    QVERIFY(!verifier.headwords());
    const std::vector<std::string> leftOut = {"unpack", "layout", "keys", "order"};
    QCOMPARE(verifier.leftOut(), leftOut);
}

void TestVerifier::needsStandBeforeWhatNeedsThem()
{
    for (size_t place = 0; place < allChecks().size(); ++place) {
        const Check& check = allChecks()[place];
        QCOMPARE(placeOfCheck(check.name), place); // no name twice
        QVERIFY2((check.ofFile == nullptr) != (check.ofRecord == nullptr), check.name);
        if (check.needs)
            QVERIFY2(placeOfCheck(check.needs) < place, check.name);
    }
}

void TestVerifier::unknownCheckIsNotSelected()
{
    LexiconVerifier verifier;
    QVERIFY(!verifier.select("frobnicate"));
    QVERIFY(verifier.leftOut().empty());
}

void TestVerifier::manualListsEveryCheck()
{
    QFile manual(QStringLiteral(TESKEL_DOCS "/teskel-lexicon.md"));
    QVERIFY(manual.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(manual.readAll());
    const QString section = text.mid(text.indexOf("\n## What verify checks"_L1));
    QStringList listed;
    static const QRegularExpression row(u"\n\\| (\\w+) \\| ([^|]+) \\|"_s);
    for (const QRegularExpressionMatch& match : row.globalMatch(section))
        listed += match.captured(1) + u' ' + match.captured(2).remove(u'`') + u'.';
    QStringList expected{u"Check Rule."_s};
    for (const Check& check : allChecks()) {
        QString rule = QString::fromUtf8(check.rule);
        rule[0] = rule[0].toLower();
        expected += QString::fromUtf8(check.name) + u' ' + rule;
    }
    QCOMPARE(listed, expected);
}

// The file has all the bytes, though they take no room on the disk.
void TestVerifier::giantRecordIsDamage()
{
    const QString path = _directory.filePath(u"a.PDB"_s);
    const QByteArray good = soundBytes();
    QVERIFY(writeFile(path, good));
    QVERIFY(QFile::resize(path, offsetOf(good, 6) + (qint64{64} << 20) + 1));
    LexiconVerifier verifier;
    std::string error;
    QVERIFY(verifier.run(path.toStdString(), error));
    QCOMPARE(verifier.findings().size(), std::size_t{1});
    QCOMPARE(verifier.findings().front().text(),
             std::string("offsets: record 6 has 67108865 bytes, the reader takes none above "
                         "67,108,864"));
}

void TestVerifier::unreadableFileIsAnError()
{
    LexiconVerifier verifier;
    std::string error;
    QVERIFY(!verifier.run("/no/such/file.PDB", error));
    QCOMPARE(error, std::string("cannot read /no/such/file.PDB: No such file or directory"));
}

void TestVerifier::directoryIsAnError()
{
    LexiconVerifier verifier;
    std::string error;
    const std::string path = _directory.path().toStdString();
    QVERIFY(!verifier.run(path, error));
    QVERIFY2(error.starts_with("cannot read " + path), error.c_str());
}

QTEST_APPLESS_MAIN(TestVerifier)
#include "test_verifier.moc"
