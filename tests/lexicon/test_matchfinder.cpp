// SPDX-License-Identifier: MIT
#include "lexicon/packing/matchfinder.h"

#include <QTest>

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
    void reportsOnlyLongerOnes();
    void forgetsEarlierBlocks();

private:
    /// Adds all positions before `position` and searches there.
    static Match findAt(MatchFinder& finder, unsigned position)
    {
        for (unsigned i = 0; i < position; ++i)
            finder.add(i);
        return finder.find(position);
    }
};

void TestMatchFinder::findsTheLongestMatch()
{
    MatchFinder finder;
    finder.start("abcd-abcx-abcd", {3, 256, 1000, 100});
    const Match match = findAt(finder, 10);
    QCOMPARE(match.length, 4U);
    QCOMPARE(match.distance, 10U);
}

void TestMatchFinder::prefersTheNearestOfEquallyLongOnes()
{
    MatchFinder finder;
    finder.start("abc.abc.abc", {3, 256, 1000, 100});
    const Match match = findAt(finder, 8);
    QCOMPARE(match.length, 3U);
    QCOMPARE(match.distance, 4U);
}

void TestMatchFinder::findsNothingInFrontOfTheBlock()
{
    MatchFinder finder;
    finder.start("abcdef", {3, 256, 1000, 100});
    QCOMPARE(finder.find(0).length, 0U);
    QCOMPARE(findAt(finder, 5).length, 0U);
}

void TestMatchFinder::overlapsItself()
{
    const std::string run(300, 'a');
    MatchFinder finder;
    finder.start(run, {3, 256, 1000, 100});
    const Match match = findAt(finder, 1);
    QCOMPARE(match.length, 256U);
    QCOMPARE(match.distance, 1U);
}

void TestMatchFinder::staysWithinLimits()
{
    const std::string text = "abcdefgh" + std::string(100, '.') + "abcdefgh";
    MatchFinder finder;
    finder.start(text, {3, 5, 108, 100});
    QCOMPARE(findAt(finder, 108).length, 5U);
    finder.start(text, {3, 5, 107, 100});
    QCOMPARE(findAt(finder, 108).length, 0U);
    finder.start("abcd-abcd", {5, 256, 1000, 100});
    QCOMPARE(findAt(finder, 5).length, 0U);
}

void TestMatchFinder::reportsOnlyLongerOnes()
{
    MatchFinder finder;
    finder.start("abcd-abcd-", {3, 256, 1000, 100});
    for (unsigned i = 0; i < 5; ++i)
        finder.add(i);
    QCOMPARE(finder.find(5, 4).length, 5U);
    QCOMPARE(finder.find(5, 5).length, 0U);
}

void TestMatchFinder::forgetsEarlierBlocks()
{
    MatchFinder finder;
    finder.start("abcabc", {3, 256, 1000, 100});
    QCOMPARE(findAt(finder, 3).length, 3U);
    const std::string next = "abcxyz";
    finder.start(next, {3, 256, 1000, 100});
    QCOMPARE(finder.find(0).length, 0U);
    QCOMPARE(findAt(finder, 3).length, 0U);
}

QTEST_APPLESS_MAIN(TestMatchFinder)
#include "test_matchfinder.moc"
