// SPDX-License-Identifier: MIT
#include "lookup/slotpause.h"

#include <QSignalSpy>
#include <QTest>

class Bell : public QObject
{
    Q_OBJECT

signals:
    void rung(int times);
};

class Ear : public QObject
{
    Q_OBJECT

public:
    int heard = 0;

public slots:
    void hear(int times) { heard += times; }
};

class TestSlotPause : public QObject
{
    Q_OBJECT

private slots:
    void pausesOneReceiverOnly();
    void pauseWithinPauseEndsWithTheOuterOne();
    void connectsNothingThatWasNotConnected();
};

void TestSlotPause::pausesOneReceiverOnly()
{
    Bell bell;
    Ear paused;
    Ear other;
    connect(&bell, &Bell::rung, &paused, &Ear::hear);
    connect(&bell, &Bell::rung, &other, &Ear::hear);
    {
        const teskel::SlotPause pause(&bell, &Bell::rung, &paused, &Ear::hear);
        emit bell.rung(1);
    }
    QCOMPARE(paused.heard, 0);
    QCOMPARE(other.heard, 1);
    emit bell.rung(1);
    QCOMPARE(paused.heard, 1);
    QCOMPARE(other.heard, 2);
}

void TestSlotPause::pauseWithinPauseEndsWithTheOuterOne()
{
    Bell bell;
    Ear ear;
    connect(&bell, &Bell::rung, &ear, &Ear::hear);
    {
        const teskel::SlotPause outer(&bell, &Bell::rung, &ear, &Ear::hear);
        {
            const teskel::SlotPause inner(&bell, &Bell::rung, &ear, &Ear::hear);
        }
        emit bell.rung(1);
        QCOMPARE(ear.heard, 0);
    }
    emit bell.rung(1);
    QCOMPARE(ear.heard, 1);
}

void TestSlotPause::connectsNothingThatWasNotConnected()
{
    Bell bell;
    Ear ear;
    {
        const teskel::SlotPause pause(&bell, &Bell::rung, &ear, &Ear::hear);
    }
    emit bell.rung(1);
    QCOMPARE(ear.heard, 0);
}

QTEST_GUILESS_MAIN(TestSlotPause)
#include "test_slotpause.moc"
