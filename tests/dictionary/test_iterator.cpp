// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

using namespace teskel::test;

class TestIterator : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void startsInvalid();
    void worksThroughTheInterface();
    void validPositions_data();
    void validPositions();
    void setPositionKeepsTheCurrentOneWhenItFails();
    void beginIsTheFirstWordEvenWithoutWords();
    void beginDoesNotAskTheDictionary();
    void closedDictionaryHasNoValidPosition();
    void moves_data();
    void moves();
    void movingAnInvalidPositionChangesNothing();
    void wordAtAnInvalidPositionWarns_data();
    void wordAtAnInvalidPositionWarns();
    void wordBehindTheLastOfItsRecordIsMissing();
    void walksTheWholeDictionaryBothWays();

private:
    QTemporaryDir _directory;
    QString _path = _directory.filePath(u"a.PDB"_s);
    QtDictionary _dictionary;
    std::unique_ptr<QtDictionary::QtDictionaryIterator> _iterator;
};

void TestIterator::init()
{
    QVERIFY(_directory.isValid());
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    DictionaryWriter writer;
    writer.addRecord({{"a", ""}, {"b", ""}});
    writer.addRecord({{"c", ""}});
    writer.addRecord({{"d", ""}, {"e", ""}, {"f", ""}});
    writer.addRecord({{"g", ""}, {"h", ""}});
    QVERIFY(writer.write(_path));
    QCOMPARE(_dictionary.open(_path), 0);
    _iterator.reset(_dictionary.createIterator());
}

void TestIterator::startsInvalid()
{
    QVERIFY(_iterator->getPosition().isInvalid());
}

void TestIterator::worksThroughTheInterface()
{
    Dictionary& dictionary = _dictionary;
    const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
    iterator->begin();
    QCOMPARE(iterator->getWord(), "a");
    QCOMPARE(iterator->move(iterator->getPosition(), 3).value(), CursorPosition::at(2, 0).value());
    QCOMPARE(iterator->getWord(), "d");
}

void TestIterator::validPositions_data()
{
    QTest::addColumn<CursorPosition>("position");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("first") << CursorPosition::at(0, 0) << true;
    QTest::newRow("last") << CursorPosition::at(3, 1) << true;
    QTest::newRow("past the last word of a record") << CursorPosition::at(0, 2) << false;
    QTest::newRow("past the last record") << CursorPosition::at(4, 0) << false;
    QTest::newRow("far past the last record") << CursorPosition::at(0xFFFF, 0) << false;
    QTest::newRow("far past the last word") << CursorPosition::at(0, 0xFFFF) << false;
    QTest::newRow("no word") << CursorPosition::invalid() << false;
}

void TestIterator::validPositions()
{
    QFETCH(CursorPosition, position);
    QTEST(_iterator->isValid(position), "isValid");
    QTEST(_iterator->setPosition(position), "isValid");
}

void TestIterator::setPositionKeepsTheCurrentOneWhenItFails()
{
    QVERIFY(_iterator->setPosition(CursorPosition::at(2, 1)));
    QVERIFY(!_iterator->setPosition(CursorPosition::invalid()));
    QVERIFY(!_iterator->setPosition(CursorPosition::at(1, 1)));
    QVERIFY(_iterator->getPosition() == CursorPosition::at(2, 1));
}

void TestIterator::beginIsTheFirstWordEvenWithoutWords()
{
    QVERIFY(DictionaryWriter().write(_path));
    QCOMPARE(_dictionary.open(_path), 0);
    QVERIFY(_iterator->getPosition().isInvalid());
    QVERIFY(_iterator->begin() == CursorPosition::at(0, 0));
    QVERIFY(_iterator->getPosition() == CursorPosition::at(0, 0));
    QVERIFY(!_iterator->isValid(_iterator->getPosition()));
}

// Whether the dictionary has words, or a file at all, is not asked.
void TestIterator::beginDoesNotAskTheDictionary()
{
    QVERIFY(_iterator->setPosition(CursorPosition::at(2, 1)));
    _dictionary.close();
    QVERIFY(_iterator->begin() == CursorPosition::at(0, 0));
    QVERIFY(_iterator->getPosition() == CursorPosition::at(0, 0));
}

void TestIterator::closedDictionaryHasNoValidPosition()
{
    QVERIFY(_iterator->setPosition(CursorPosition::at(2, 1)));
    _dictionary.close();
    const CursorPosition first = CursorPosition::at(0, 0);
    for (const int delta : {-1, 0, 1}) {
        QVERIFY(_iterator->move(first, delta) == first);
        QVERIFY(!_iterator->setPosition(first));
        QVERIFY(_iterator->getPosition() == CursorPosition::at(2, 1));
    }
}

void TestIterator::moves_data()
{
    QTest::addColumn<CursorPosition>("from");
    QTest::addColumn<int>("delta");
    QTest::addColumn<CursorPosition>("to");
    const CursorPosition first = CursorPosition::at(0, 0);
    const CursorPosition last = CursorPosition::at(3, 1);
    const CursorPosition nowhere = CursorPosition::invalid();
    QTest::newRow("not at all") << last << 0 << last;
    QTest::newRow("within a record") << CursorPosition::at(2, 0) << 2 << CursorPosition::at(2, 2);
    QTest::newRow("into the next record")
        << CursorPosition::at(1, 0) << 1 << CursorPosition::at(2, 0);
    QTest::newRow("across records") << CursorPosition::at(0, 1) << 4 << CursorPosition::at(2, 2);
    QTest::newRow("from first to last") << first << 7 << last;
    QTest::newRow("past the last word") << last << 1 << nowhere;
    QTest::newRow("far past the last word") << first << std::numeric_limits<int>::max() << nowhere;
    QTest::newRow("back within a record")
        << CursorPosition::at(2, 2) << -2 << CursorPosition::at(2, 0);
    QTest::newRow("back into the record before")
        << CursorPosition::at(3, 0) << -1 << CursorPosition::at(2, 2);
    QTest::newRow("back across records")
        << CursorPosition::at(3, 1) << -6 << CursorPosition::at(0, 1);
    QTest::newRow("from last to first") << last << -7 << first;
    QTest::newRow("before the first word") << first << -1 << nowhere;
    QTest::newRow("far before the first word")
        << last << std::numeric_limits<int>::min() << nowhere;
}

void TestIterator::moves()
{
    QFETCH(CursorPosition, from);
    QFETCH(int, delta);
    QFETCH(CursorPosition, to);
    QVERIFY(_iterator->setPosition(CursorPosition::at(1, 0))); // which no move ends on
    QCOMPARE(_iterator->move(from, delta).value(), to.value());
    QCOMPARE(_iterator->getPosition().value(), to.value());
}

void TestIterator::movingAnInvalidPositionChangesNothing()
{
    _iterator->setPosition(CursorPosition::at(1, 0));
    for (const int delta : {-1, 0, 1, 100}) {
        QVERIFY(_iterator->move(CursorPosition::invalid(), delta).isInvalid());
        const CursorPosition outside = CursorPosition::at(1, 5);
        QVERIFY(_iterator->move(outside, delta) == outside);
        QVERIFY(_iterator->getPosition() == CursorPosition::at(1, 0));
    }
}

void TestIterator::wordAtAnInvalidPositionWarns_data()
{
    QTest::addColumn<CursorPosition>("position");
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<QStringList>("conditions");
    const auto isValid = u"isValid(_position)"_s;
    const auto isBelowCount = u"recordIndex<records->getCount()"_s;
    QTest::newRow("no word") << CursorPosition::invalid() << true
                             << QStringList({isValid, isBelowCount});
    QTest::newRow("word of a dictionary that was closed")
        << CursorPosition::at(0, 0) << false << QStringList({isValid, u"isOpen()"_s});
}

// The record is asked for all the same.
void TestIterator::wordAtAnInvalidPositionWarns()
{
    QFETCH(CursorPosition, position);
    QFETCH(bool, isOpen);
    QFETCH(QStringList, conditions);
    if (!position.isInvalid())
        QVERIFY(_iterator->setPosition(position));
    if (!isOpen)
        _dictionary.close();
    const WarningCapture warnings;
    QVERIFY(!_iterator->getWord());
    QCOMPARE(warnings.messages().size(), conditions.size());
    for (qsizetype i = 0; i < conditions.size(); ++i)
        QVERIFY2(warnings.messages().at(i).startsWith(
                     u"ASSERT: \"%1\" in qtdictionary.cpp ("_s.arg(conditions.at(i))),
                 qPrintable(warnings.messages().at(i)));
}

void TestIterator::wordBehindTheLastOfItsRecordIsMissing()
{
    _iterator->begin();
    QVERIFY(DictionaryWriter().addRecord({}).write(_path));
    QCOMPARE(_dictionary.open(_path), 0);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"\"isValid\\(_position\\)\""_s));
    QVERIFY(!_iterator->getWord());
}

void TestIterator::walksTheWholeDictionaryBothWays()
{
    QByteArray forward;
    CursorPosition position = _iterator->begin();
    CursorPosition last;
    while (_iterator->isValid(position)) {
        forward += _iterator->getWord();
        last = position;
        position = _iterator->move(position, 1);
    }
    QCOMPARE(forward, QByteArray("abcdefgh"));
    QByteArray backward;
    for (position = last; _iterator->setPosition(position);
         position = _iterator->move(position, -1))
        backward += _iterator->getWord();
    QCOMPARE(backward, QByteArray("hgfedcba"));
}

QTEST_GUILESS_MAIN(TestIterator)
#include "test_iterator.moc"
