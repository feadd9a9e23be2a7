// SPDX-License-Identifier: MIT
#include "lexicon/diagnostics/progress.h"

#include <QTest>

#include <sstream>

using namespace std::chrono_literals;

using teskel::Progress;

/// The line of progress under a clock that the test winds.
class TestProgress : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void phaseIsShownAtOnce();
    void entriesAreShownTenTimesASecond();
    void timeLeftIsToldWhenTheTotalIsKnown();
    void expectedEntriesMakeTheTotal();
    void totalThatIsPassedIsToldNoMore();
    void endTakesTheLineAway();
    void nothingIsShownWithoutATerminal();

private:
    /// What was shown since the last call, with "<" for the clearing of the line.
    std::string shown();

    std::ostringstream _out;
    Progress::Clock::time_point _time;
    Progress::Now _now = [this] { return _time; };
};

void TestProgress::init()
{
    shown();
    _time = Progress::Clock::time_point(1h);
}

std::string TestProgress::shown()
{
    QByteArray text = QByteArray::fromStdString(_out.str());
    _out.str({});
    text.replace("\r\x1B[K", "<");
    return text.toStdString();
}

void TestProgress::phaseIsShownAtOnce()
{
    Progress progress(&_out, _now);
    progress.begin("reading");
    QCOMPARE(shown(), std::string("<reading"));
    progress.begin("sorting");
    QCOMPARE(shown(), std::string("<sorting"));
}

void TestProgress::entriesAreShownTenTimesASecond()
{
    Progress progress(&_out, _now);
    progress.begin("reading");
    shown();
    progress.advance(1000);
    QCOMPARE(shown(), std::string());
    _time += 100ms;
    progress.advance(1000);
    QCOMPARE(shown(), std::string("<reading: 2000 entries"));
    _time += 99ms;
    progress.advance(1000);
    QCOMPARE(shown(), std::string());
}

void TestProgress::timeLeftIsToldWhenTheTotalIsKnown()
{
    Progress progress(&_out, _now);
    progress.begin("packing", 4000);
    _time += 100ms;
    progress.advance(1000);
    QCOMPARE(shown(), std::string("<packing<packing: 1000 of 4000 entries"));
    _time += 900ms;
    progress.advance(1000);
    QCOMPARE(shown(), std::string("<packing: 2000 of 4000 entries, 2 s left"));
}

void TestProgress::expectedEntriesMakeTheTotal()
{
    Progress progress(&_out, _now);
    progress.begin("reading");
    progress.expect(3000);
    progress.expect(1000);
    shown();
    _time += 2s;
    progress.advance(1000);
    QCOMPARE(shown(), std::string("<reading: 1000 of 4000 entries, 7 s left"));
}

void TestProgress::totalThatIsPassedIsToldNoMore()
{
    Progress progress(&_out, _now);
    progress.begin("reading", 10);
    shown();
    _time += 1s;
    progress.advance(64);
    QCOMPARE(shown(), std::string("<reading: 64 entries"));
}

void TestProgress::endTakesTheLineAway()
{
    {
        Progress progress(&_out, _now);
        progress.begin("reading");
        progress.end();
        QCOMPARE(shown(), std::string("<reading<"));
        progress.end();
        QCOMPARE(shown(), std::string());
        progress.begin("packing");
    }
    QCOMPARE(shown(), std::string("<packing<"));
}

void TestProgress::nothingIsShownWithoutATerminal()
{
    Progress progress;
    progress.begin("reading", 10);
    progress.advance(1000);
    progress.end();
    QCOMPARE(shown(), std::string());
}

QTEST_APPLESS_MAIN(TestProgress)
#include "test_progress.moc"
