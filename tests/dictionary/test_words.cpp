// SPDX-License-Identifier: MIT
// Words of a dictionary: access by position, comparison, search, random words.
#include "dictionary/qtdictionary.h"
#include "tests/support/arjmember.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>
#include <limits>

using namespace Qt::StringLiterals;

using namespace teskel::test;

namespace
{
const CursorPosition nowhere = CursorPosition::invalid();

int signOf(int value)
{
    return (value > 0) - (value < 0);
}
} // namespace

class TestWords : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void compares_data();
    void compares();
    void comparesPrefixes_data();
    void comparesPrefixes();
    void samePointersAreEqual();
    void comparisonOfAClosedDictionaryWarns();
    void toUpperFoldsInPlace();
    void findsWords_data();
    void findsWords();
    void positionArgumentIsNotUsed();
    void prefixIsFoundAtTheEndOfTheRecordBefore();
    void missingWordIsInvalid();
    void keysBeyondTheLastRecordLeadNowhere();
    void searchEndsAtARecordThatCannotBeRead();
    void wordAtAPosition();
    void wordAtAWrongPositionWarns_data();
    void wordAtAWrongPositionWarns();
    void wordFitsItsBufferExactly();
    void articleTellsTheSizeItNeeds();
    void articleOfAMissingRecord();
    void randomWordsAreThoseOfTheDictionary();
    void randomWordFollowsRandom();
    void randomWordIsDrawnBeforeTheBufferIsLookedAt_data();
    void randomWordIsDrawnBeforeTheBufferIsLookedAt();
    void randomWordOfADictionaryWithoutWords();
    void randomWordOfARecordWithoutWords();

private:
    bool open(const DictionaryWriter& writer)
    {
        return writer.write(_path) && _dictionary.open(_path) == 0;
    }
    CursorPosition find(const char* word, bool prefix = false)
    {
        return _dictionary.findWord(word, nowhere, prefix);
    }

    QTemporaryDir _directory;
    QString _path = _directory.filePath(u"a.PDB"_s);
    DictionaryWriter _writer;
    QtDictionary _dictionary;
};

void TestWords::initTestCase()
{
    QVERIFY(_directory.isValid());
    _writer.addRecord({{"Ant", "1"}, {"ape", "2"}, {"hound", "3"}, {"house", "4"}});
    _writer.addRecord({{"house-boat", "5"}, {"House-hold", "6"}, {"houses", "7"}});
    _writer.addRecord({{"\xC4rger", "8"}, {"\xE4rgern", "9"}});
}

void TestWords::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QVERIFY(open(_writer));
}

void TestWords::compares_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("sign");
    QTest::newRow("case") << QByteArray("apple") << QByteArray("APPLE") << 0;
    QTest::newRow("hyphens count") << QByteArray("ab") << QByteArray("a-b") << 1;
    QTest::newRow("spaces count") << QByteArray("a b") << QByteArray("ab") << -1;
    QTest::newRow("umlauts fold") << QByteArray("\xFC"
                                                "ber")
                                  << QByteArray("\xDC"
                                                "BER")
                                  << 0;
    QTest::newRow("beginning") << QByteArray("house") << QByteArray("houses") << -1;
    QTest::newRow("umlauts after z") << QByteArray("\xE4") << QByteArray("zz") << 1;
}

void TestWords::compares()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(int, sign);
    QCOMPARE(signOf(_dictionary.wordCompare(a.constData(), b.constData())), sign);
    QCOMPARE(signOf(_dictionary.wordCompare(b.constData(), a.constData(), false)), -sign);
}

void TestWords::comparesPrefixes_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<QByteArray>("prefix");
    QTest::addColumn<int>("sign");
    QTest::newRow("begins with it") << QByteArray("house-boat") << QByteArray("HOUSE") << 0;
    QTest::newRow("is too short") << QByteArray("ho") << QByteArray("house") << -1;
    QTest::newRow("empty prefix") << QByteArray("x") << QByteArray() << 0;
    QTest::newRow("greater") << QByteArray("zoo") << QByteArray("house") << 1;
}

void TestWords::comparesPrefixes()
{
    QFETCH(QByteArray, word);
    QFETCH(QByteArray, prefix);
    QFETCH(int, sign);
    QCOMPARE(signOf(_dictionary.wordCompare(word.constData(), prefix.constData(), true)), sign);
    QCOMPARE(signOf(_dictionary.wordNCompare(word.constData(), prefix.constData(),
                                             static_cast<unsigned int>(prefix.size()))),
             sign);
}

void TestWords::samePointersAreEqual()
{
    QCOMPARE(_dictionary.wordCompare(nullptr, nullptr), 0);
    QCOMPARE(_dictionary.wordNCompare(nullptr, nullptr, 3), 0);
    const WarningCapture warnings;
    QVERIFY(_dictionary.wordCompare(nullptr, "a") < 0);
    QCOMPARE(warnings.count(u"\"buffer!=NULL\" in qtdictionary.cpp"_s), 1);
}

void TestWords::comparisonOfAClosedDictionaryWarns()
{
    QtDictionary closed;
    const WarningCapture warnings;
    QCOMPARE(closed.wordCompare("a", "A"), 0);
    QCOMPARE(closed.wordNCompare("ab", "AC", 1), 0);
    QCOMPARE(warnings.count(u"ASSERT: \"isOpen()\" in qtdictionary.cpp ("_s), 2);
}

void TestWords::toUpperFoldsInPlace()
{
    char text[] = "Gr\xFC\xDF"
                  "e, \xE9t\xE9 \xF7 \xFF!";
    _dictionary.toUpper(text);
    QCOMPARE(text, "GR\xDC\xDF"
                   "E, \xC9T\xC9 \xF7 \xFF!");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\"buffer!=NULL\""_s));
    _dictionary.toUpper(nullptr);
}

void TestWords::findsWords_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("prefix");
    QTest::addColumn<CursorPosition>("position");
    const auto row = [](const char* word, bool prefix, CursorPosition position) {
        QTest::addRow("%s%s", word, prefix ? "..." : "") << QByteArray(word) << prefix << position;
    };
    row("ant", false, CursorPosition::at(0, 0));
    row("APE", false, CursorPosition::at(0, 1));
    row("house", false, CursorPosition::at(0, 3));
    row("house-boat", false, CursorPosition::at(1, 0));
    row("houses", false, CursorPosition::at(1, 2));
    row("\xE4rger", false, CursorPosition::at(2, 0));
    row("\xC4RGERN", false, CursorPosition::at(2, 1));
    row("", false, nowhere);
    row("aardvark", false, nowhere); // before all words
    row("hous", false, nowhere);     // between two words
    row("houseboat", false, nowhere);
    row("\xFF", false, nowhere); // after all words
    row("", true, CursorPosition::at(0, 0));
    row("a", true, CursorPosition::at(0, 0));
    row("AP", true, CursorPosition::at(0, 1));
    row("hou", true, CursorPosition::at(0, 2));
    row("house", true, CursorPosition::at(0, 3));
    row("house-", true, CursorPosition::at(1, 0));
    row("house-h", true, CursorPosition::at(1, 1));
    row("\xE4", true, CursorPosition::at(2, 0));
    row("b", true, nowhere);
    row("houses of", true, nowhere);
    row("\xFF", true, nowhere);
}

void TestWords::findsWords()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, prefix);
    QFETCH(CursorPosition, position);
    QCOMPARE(find(word.constData(), prefix).value(), position.value());
}

void TestWords::positionArgumentIsNotUsed()
{
    for (const CursorPosition from : {CursorPosition::at(2, 1), CursorPosition::at(9, 9), nowhere})
        QCOMPARE(_dictionary.findWord("ape", from, false).value(),
                 CursorPosition::at(0, 1).value());
}

void TestWords::prefixIsFoundAtTheEndOfTheRecordBefore()
{
    DictionaryWriter writer;
    writer.addRecord({{"a", "1"}, {"house", "2"}});
    writer.addRecord({{"house", "3"}, {"housing", "4"}});
    writer.addRecord({{"house", "5"}});
    QVERIFY(open(writer));
    QCOMPARE(find("house", true).value(), CursorPosition::at(0, 1).value());
    QCOMPARE(find("hous", true).value(), CursorPosition::at(0, 1).value());
    QCOMPARE(find("house", false).value(), CursorPosition::at(0, 1).value());
}

void TestWords::missingWordIsInvalid()
{
    QVERIFY(_dictionary.findWord(nullptr, nowhere, false).isInvalid());
}

void TestWords::keysBeyondTheLastRecordLeadNowhere()
{
    DictionaryWriter writer;
    writer.addRecord({{"a", "1"}, {"z", "2"}});
    writer.setIndex(QByteArray("a\0b\0c\0\0", 7));
    QVERIFY(open(writer));
    QCOMPARE(find("a").value(), CursorPosition::at(0, 0).value());
    QVERIFY(find("z").isInvalid()); // the keys send it to a record that is not there
    QVERIFY(find("bb").isInvalid());
}

void TestWords::searchEndsAtARecordThatCannotBeRead()
{
    DictionaryWriter writer;
    writer.addRecord({{"a", "1"}});
    writer.addPackedRecord("b", "no member");
    writer.addRecord({{"c", "3"}});
    QVERIFY(open(writer));
    QCOMPARE(find("a").value(), CursorPosition::at(0, 0).value());
    QTest::ignoreMessage(QtWarningMsg, "Decompressed record is null");
    QVERIFY(find("c").isInvalid()); // "c" is its record's key: the walk begins in the one before
    DictionaryWriter better = writer;
    better.setIndex(QByteArray("a\0b\0bz\0\0", 8));
    QVERIFY(open(better));
    QCOMPARE(find("c").value(), CursorPosition::at(2, 0).value());
}

void TestWords::wordAtAPosition()
{
    QCOMPARE(_dictionary.getWordAt(CursorPosition::at(0, 0)), "Ant");
    QCOMPARE(_dictionary.getWordAt(CursorPosition::at(1, 2)), "houses");
    QCOMPARE(_dictionary.getWordAt(CursorPosition::at(2, 1)), "\xE4rgern");
}

void TestWords::wordAtAWrongPositionWarns_data()
{
    QTest::addColumn<CursorPosition>("position");
    QTest::addColumn<bool>("isRecordWrong");
    QTest::newRow("word") << CursorPosition::at(0, 4) << false;
    QTest::newRow("record") << CursorPosition::at(3, 0) << true;
    QTest::newRow("record whose number wraps around") << CursorPosition::at(0xFFFE, 0) << true;
    QTest::newRow("no word") << nowhere << true;
}

void TestWords::wordAtAWrongPositionWarns()
{
    QFETCH(CursorPosition, position);
    QFETCH(bool, isRecordWrong);
    char buffer[64] = "?";
    unsigned int size = sizeof buffer;
    const WarningCapture warnings;
    QVERIFY(!_dictionary.getWordAt(position));
    QVERIFY(!_dictionary.getWord(position, buffer, sizeof buffer));
    QVERIFY(!_dictionary.getDescription(position, buffer, &size));
    QCOMPARE(size, 0U);
    QCOMPARE(buffer, "?");
    QCOMPARE(
        warnings.count(u"ASSERT: \"position.compoundPosition.wordNumber<getTotalWordCount(position."
                       "compoundPosition.recordNumber)\" in qtdictionary.cpp ("_s),
        3);
    QCOMPARE(warnings.count(u"ASSERT: \"position.compoundPosition.recordNumber<"
                            "getWordRecordCount()\" in qtdictionary.cpp ("_s),
             isRecordWrong ? 3 : 0);
}

void TestWords::wordFitsItsBufferExactly()
{
    char buffer[8] = "?";
    QVERIFY(!_dictionary.getWord(CursorPosition::at(1, 2), buffer, 6));
    QVERIFY(!_dictionary.getWord(CursorPosition::at(1, 2), buffer, 0));
    QCOMPARE(buffer, "?");
    QVERIFY(_dictionary.getWord(CursorPosition::at(1, 2), buffer, 7));
    QCOMPARE(buffer, "houses");
}

void TestWords::articleTellsTheSizeItNeeds()
{
    QVERIFY(open(DictionaryWriter().addRecord({{"a", QByteArray(300, 'x')}, {"b", ""}})));
    QByteArray buffer(301, '?');
    unsigned int size = 256;
    QVERIFY(!_dictionary.getDescription(CursorPosition::at(0, 0), buffer.data(), &size));
    QCOMPARE(size, 301U);
    QCOMPARE(buffer, QByteArray(301, '?'));
    QVERIFY(_dictionary.getDescription(CursorPosition::at(0, 0), buffer.data(), &size));
    QCOMPARE(size, 301U);
    QCOMPARE(buffer, QByteArray(300, 'x') + '\0');
    size = 256;
    QVERIFY(_dictionary.getDescription(CursorPosition::at(0, 1), buffer.data(), &size));
    QCOMPARE(size, 1U);
    QCOMPARE(buffer.constData(), "");
}

void TestWords::articleOfAMissingRecord()
{
    QVERIFY(open(DictionaryWriter().addPackedRecord("a", "no member")));
    unsigned int size = 20;
    char buffer[20] = "?";
    const WarningCapture warnings;
    QVERIFY(!_dictionary.getDescription(CursorPosition::at(0, 0), buffer, &size));
    QCOMPARE(size, 0U);
    QCOMPARE(buffer, "?");
    QVERIFY(warnings.count(u"Decompressed record is null"_s) > 0);
}

void TestWords::randomWordsAreThoseOfTheDictionary()
{
    char buffer[64];
    for (int i = 0; i < 50; ++i) {
        QVERIFY(_dictionary.getRandomWord(buffer, sizeof buffer));
        QVERIFY(!find(buffer).isInvalid());
    }
    QVERIFY(!_dictionary.getRandomWord(buffer, 3));
    QVERIFY(!_dictionary.getRandomWord(buffer, -1));
}

// The record comes first, then the word.
void TestWords::randomWordFollowsRandom()
{
    const unsigned short counts[] = {4, 3, 2};
    srandom(7);
    QByteArrayList expected;
    for (int i = 0; i < 20; ++i) {
        const auto record = static_cast<quint16>(random() % 3);
        const auto word = static_cast<quint16>(random() % counts[record]);
        expected.append(_dictionary.getWordAt(CursorPosition::at(record, word)));
    }
    srandom(7);
    char buffer[64];
    for (const QByteArray& word : expected) {
        QVERIFY(_dictionary.getRandomWord(buffer, sizeof buffer));
        QCOMPARE(QByteArray(buffer), word);
    }
}

void TestWords::randomWordIsDrawnBeforeTheBufferIsLookedAt_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {3, 0, -1, std::numeric_limits<int>::min()})
        QTest::addRow("%d bytes", size) << size;
}

// The words that follow do not depend on whether the one before them found room.
void TestWords::randomWordIsDrawnBeforeTheBufferIsLookedAt()
{
    QFETCH(int, size);
    DictionaryWriter writer;
    for (int record = 0; record < 50; ++record)
        writer.addRecord({{"word" + QByteArray::number(1000 + record), "x"}});
    QVERIFY(open(writer));
    char buffer[64];
    srandom(7);
    QVERIFY(_dictionary.getRandomWord(buffer, sizeof buffer));
    QVERIFY(_dictionary.getRandomWord(buffer, sizeof buffer));
    const QByteArray second(buffer);
    srandom(7);
    buffer[0] = '?';
    QVERIFY(!_dictionary.getRandomWord(buffer, size));
    QCOMPARE(buffer[0], '?');
    QVERIFY(_dictionary.getRandomWord(buffer, sizeof buffer));
    QCOMPARE(QByteArray(buffer), second);
}

void TestWords::randomWordOfADictionaryWithoutWords()
{
    char buffer[64];
    QVERIFY(open(DictionaryWriter()));
    QVERIFY(!_dictionary.getRandomWord(buffer, sizeof buffer));
    QtDictionary closed;
    QVERIFY(!closed.getRandomWord(buffer, sizeof buffer));
}

void TestWords::randomWordOfARecordWithoutWords()
{
    char buffer[64];
    QVERIFY(open(DictionaryWriter().addRecord({})));
    QVERIFY(!_dictionary.getRandomWord(buffer, sizeof buffer));
}

QTEST_GUILESS_MAIN(TestWords)
#include "test_words.moc"
