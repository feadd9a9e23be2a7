// SPDX-License-Identifier: MIT
// A failed condition's warning leads to the line that checks it.
#include "dictionary/container/qtpalmdb.h"
#include "dictionary/qtdictionary.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace teskel::test;

class TestAssertions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void warningsOfTheDictionary();
    void warningsOfTheContainer();

private:
    QTemporaryDir _directory;
    QString _path = _directory.filePath(u"a.PDB"_s);
};

namespace
{
QStringList linesOf(const QString& unit)
{
    QDirIterator sources(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../../src/dictionary"), {unit},
                         QDir::Files, QDirIterator::Subdirectories);
    QFile file(sources.next());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
}

// What is wrong with the place that a warning names, or nothing.
QString faultOf(const QString& warning)
{
    static const QRegularExpression form(u"^ASSERT: \"(.*)\" in (\\S+) \\((\\d+)\\)$"_s);
    const QRegularExpressionMatch match = form.match(warning);
    if (!match.hasMatch())
        return u"not an assertion: "_s + warning;
    const QStringList lines = linesOf(match.captured(2));
    const qsizetype line = match.captured(3).toLongLong();
    if (line < 1 || line > lines.size())
        return u"no such line: "_s + warning;
    if (lines.at(line - 1).contains(u"verifyOpen(__LINE__)"_s))
        return {};
    // A check may be spread over several lines; which of them counts is the compiler's choice.
    static const QRegularExpression joint(u"\"\\s*\""_s);
    const QString text = lines.mid(qMax<qsizetype>(0, line - 5), 9).join(QString()).remove(joint);
    if (!text.contains(QLatin1Char('"') + match.captured(1) + QLatin1Char('"')))
        return u"that is not checked there: "_s + warning;
    return {};
}

void checkPlaces(const QStringList& warnings)
{
    for (const QString& warning : warnings) {
        if (warning.startsWith(u"ASSERT"_s))
            QCOMPARE(faultOf(warning), QString());
    }
}
} // namespace

void TestAssertions::initTestCase()
{
    QVERIFY(_directory.isValid());
    QVERIFY(
        DictionaryWriter().addRecord({{"ant", "Ameise"}}).addPackedRecord("bat", "").write(_path));
}

void TestAssertions::warningsOfTheDictionary()
{
    QtDictionary dictionary;
    char buffer[64];
    const WarningCapture warnings;
    dictionary.getName(buffer, sizeof buffer);
    dictionary.getDescription(buffer, sizeof buffer);
    dictionary.wordCompare("a", "b");
    dictionary.wordNCompare(nullptr, "b", 1);
    dictionary.toUpper(nullptr);
    dictionary.findWord("a", CursorPosition::invalid(), false);
    dictionary.getWordAt(CursorPosition::at(0, 0));
    dictionary.getWordRecord(0);
    const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
    iterator->getWord();
    QCOMPARE(dictionary.open(_path), 0);
    dictionary.getTotalWordCount(9);
    dictionary.getWordAt(CursorPosition::at(0, 9));
    dictionary.getWordRecord(1); // of no bytes
    QVERIFY(warnings.count(u" in qtdictionary.cpp ("_s) >= 13);
    for (const char* condition :
         {"\"isOpen()\"", "\"buffer!=NULL\"", "\"isValid(_position)\"",
          "\"recordIndex<getWordRecordCount()\"", "\"recordIndex<records->getCount()\"",
          "\"position.compoundPosition.recordNumber<getWordRecordCount()\"",
          "wordNumber<getTotalWordCount(position.compoundPosition.recordNumber)\"",
          "\"metaData->size!=0\"", "\"result->size!=0\""})
        QVERIFY2(warnings.count(QLatin1String(condition)) > 0, condition);
    checkPlaces(warnings.messages());
}

void TestAssertions::warningsOfTheContainer()
{
    const WarningCapture warnings;
    QtPalmDatabase database;
    database.getCreator();
    database.getType();
    database.getNumRecords();
    database.getVersion();
    database.getCreationDate();
    database.getModificationDate();
    database.getLastBackupDate();
    const RecordPointer unbound(database.getRecords()->getData(0));
    QCOMPARE(database.load(_path), 0);
    QCOMPARE(database.load(_path), 0); // which is one time too many
    QBuffer closed;
    database.getRecords()->setIOInfo(&closed, 0, 0);
    database.getRecords()->getRecordMetaData(nullptr, 9);
    QVERIFY(warnings.count(u" in qtpalmdb.cpp ("_s) >= 25);
    for (const char* condition :
         {"\"_device!=NULL\"", "\"_device->isOpen()\"", "\"_device==NULL\"", "\"device->isOpen()\"",
          "\"_firstRecordOffset==-1\"", "\"_firstRecordOffset!=-1\"", "\"_recordCount==0\"",
          "\"index<_recordCount\"", "\"data!=NULL\""})
        QVERIFY2(warnings.count(QLatin1String(condition)) > 0, condition);
    checkPlaces(warnings.messages());
}

QTEST_GUILESS_MAIN(TestAssertions)
#include "test_assertions.moc"
