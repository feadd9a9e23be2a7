// SPDX-License-Identifier: MIT
#include "lexicon/packing/matchfinder.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <string>

using teskel::Match;
using teskel::MatchFinder;

class TestMatchFinder : public QObject
{
    Q_OBJECT

private slots:
    void findsTheLongestMatch();
    void prefersTheNearestOfEquallyLongOnes();
    void findsNothingInFrontOfTheBlock();
    void overlapsItself();
    void staysWithinLimits();
    void leavesShorterOnesOut();
    void findsWhatAPlainSearchFinds_data();
    void findsWhatAPlainSearchFinds();
    void reportsOnlyLongerOnes();
    void forgetsEarlierBlocks();

private:
    /// Steps over all positions before `position` and searches there.
    static Match findAt(MatchFinder& finder, unsigned position)
    {
        finder.skip(position);
        return finder.find();
    }
};

void TestMatchFinder::findsTheLongestMatch()
{
    MatchFinder finder;
    finder.start("abcd-abcx-abcd", {3, 256, 1000, 100, 100});
    const Match match = findAt(finder, 10);
    QCOMPARE(match.length, 4U);
    QCOMPARE(match.distance, 10U);
}

void TestMatchFinder::prefersTheNearestOfEquallyLongOnes()
{
    MatchFinder finder;
    finder.start("abc.abc.abc", {3, 256, 1000, 100, 100});
    const Match match = findAt(finder, 8);
    QCOMPARE(match.length, 3U);
    QCOMPARE(match.distance, 4U);
}

void TestMatchFinder::findsNothingInFrontOfTheBlock()
{
    MatchFinder finder;
    finder.start("abcdef", {3, 256, 1000, 100, 100});
    QCOMPARE(finder.find().length, 0U);
    QCOMPARE(findAt(finder, 4).length, 0U);
}

void TestMatchFinder::overlapsItself()
{
    const std::string run(300, 'a');
    MatchFinder finder;
    finder.start(run, {3, 256, 1000, 100, 100});
    const Match match = findAt(finder, 1);
    QCOMPARE(match.length, 256U);
    QCOMPARE(match.distance, 1U);
}

void TestMatchFinder::staysWithinLimits()
{
    const std::string text = "abcdefgh" + std::string(100, '.') + "abcdefgh";
    MatchFinder finder;
    finder.start(text, {3, 5, 108, 100, 100});
    QCOMPARE(findAt(finder, 108).length, 5U);
    finder.start(text, {3, 5, 107, 100, 100});
    QCOMPARE(findAt(finder, 108).length, 0U);
}

void TestMatchFinder::leavesShorterOnesOut()
{
    MatchFinder finder;
    finder.start("abc-abc", {4, 256, 1000, 100, 100});
    QCOMPARE(findAt(finder, 4).length, 0U);
    finder.start("abcd-abcd", {4, 256, 1000, 100, 100});
    QCOMPARE(findAt(finder, 5).length, 4U);
}

void TestMatchFinder::findsWhatAPlainSearchFinds_data()
{
    QTest::addColumn<unsigned>("values");
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<unsigned>("minLength");
    for (const unsigned minLength : {3U, 4U}) {
        for (const unsigned values : {1U, 2U, 3U, 26U, 256U}) {
            for (const unsigned size : {1U, 3U, 4U, 5U, 12U, 700U})
                QTest::addRow("%u bytes of %u values, from %u on", size, values, minLength)
                    << values << size << minLength;
        }
    }
}

/// With as many tries as there are places, chains find what a search through all places finds.
void TestMatchFinder::findsWhatAPlainSearchFinds()
{
    QFETCH(unsigned, values);
    QFETCH(unsigned, size);
    QFETCH(unsigned, minLength);
    constexpr unsigned maxLength = 40;
    constexpr unsigned maxDistance = 300;
    QRandomGenerator random(values * 1000 + size);
    std::string block;
    for (unsigned i = 0; i < size; ++i)
        block += static_cast<char>(random.bounded(values));
    MatchFinder finder;
    finder.start(block, {minLength, maxLength, maxDistance, size, size});
    for (unsigned here = 0; here < size; ++here) {
        Match expected;
        const unsigned longest = std::min(maxLength, size - here);
        for (unsigned distance = 1; distance <= std::min(here, maxDistance); ++distance) {
            unsigned length = 0;
            while (length < longest && block[here + length] == block[here - distance + length])
                ++length;
            if (length >= minLength && length > expected.length)
                expected = {length, distance};
        }
        const Match match = finder.find();
        QCOMPARE(match.length, expected.length);
        QCOMPARE(match.distance, expected.distance);
    }
}

void TestMatchFinder::reportsOnlyLongerOnes()
{
    MatchFinder finder;
    for (const unsigned longerThan : {0U, 4U, 5U}) {
        finder.start("abcd-abcd-", {3, 256, 1000, 100, 100});
        finder.skip(5);
        QCOMPARE(finder.find(longerThan).length, longerThan < 5 ? 5U : 0U);
    }
}

void TestMatchFinder::forgetsEarlierBlocks()
{
    MatchFinder finder;
    finder.start("abcabc", {3, 256, 1000, 100, 100});
    QCOMPARE(findAt(finder, 3).length, 3U);
    const std::string next = "abcxyz";
    finder.start(next, {3, 256, 1000, 100, 100});
    QCOMPARE(finder.find().length, 0U);
    QCOMPARE(findAt(finder, 2).length, 0U);
}

QTEST_APPLESS_MAIN(TestMatchFinder)
#include "test_matchfinder.moc"
