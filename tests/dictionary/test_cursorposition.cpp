// SPDX-License-Identifier: MIT
#include "dictionary/cursorposition.h"

#include <QTest>

class TestCursorPosition : public QObject
{
    Q_OBJECT

private slots:
    void startsInvalid();
    void valueHoldsBothHalves();
    void onlyAllBitsSetIsInvalid();
};

void TestCursorPosition::startsInvalid()
{
    const CursorPosition position;
    QVERIFY(position.isInvalid());
    QCOMPARE(position.value(), 0xFFFFFFFFU);
    QVERIFY(position == CursorPosition::invalid());
}

void TestCursorPosition::valueHoldsBothHalves()
{
    const CursorPosition position = CursorPosition::at(0x1234, 0x5678);
    QCOMPARE(position.compoundPosition.recordNumber, quint16{0x1234});
    QCOMPARE(position.compoundPosition.wordNumber, quint16{0x5678});
    QVERIFY(CursorPosition::fromValue(position.value()) == position);
    QVERIFY(!(CursorPosition::at(1, 2) == CursorPosition::at(2, 1)));
}

void TestCursorPosition::onlyAllBitsSetIsInvalid()
{
    QVERIFY(!CursorPosition::at(0xFFFF, 0).isInvalid());
    QVERIFY(!CursorPosition::at(0, 0xFFFF).isInvalid());
    QVERIFY(!CursorPosition::at(0, 0).isInvalid());
    QVERIFY(CursorPosition::at(0xFFFF, 0xFFFF).isInvalid());
}

QTEST_GUILESS_MAIN(TestCursorPosition)
#include "test_cursorposition.moc"
