// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxtypeahead.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

class TestListBoxTypeAhead : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void collectsInLowerCase();
    void expiresHalfASecondAfterTheLastKey();
    void clearEndsWaiting();
};

void TestListBoxTypeAhead::collectsInLowerCase()
{
    teskel::ListBoxTypeAhead typeAhead;
    typeAhead.append(QStringLiteral("H"));
    QCOMPARE(typeAhead.append(QStringLiteral("\u00D6U")), QStringLiteral("h\u00F6u"));
}

void TestListBoxTypeAhead::expiresHalfASecondAfterTheLastKey()
{
    teskel::ListBoxTypeAhead typeAhead;
    auto* timer = typeAhead.findChild<QTimer*>();
    typeAhead.append(QStringLiteral("a"));
    QVERIFY(timer->isActive() && timer->isSingleShot());
    QCOMPARE(timer->interval(), 500);
    QSignalSpy expired(&typeAhead, &teskel::ListBoxTypeAhead::expired);
    QVERIFY(expired.wait());
    QVERIFY(!timer->isActive());
}

void TestListBoxTypeAhead::clearEndsWaiting()
{
    teskel::ListBoxTypeAhead typeAhead;
    typeAhead.append(QStringLiteral("a"));
    typeAhead.clear();
    QVERIFY(!typeAhead.findChild<QTimer*>()->isActive());
    QCOMPARE(typeAhead.append(QStringLiteral("b")), QStringLiteral("b"));
}

QTEST_GUILESS_MAIN(TestListBoxTypeAhead)
#include "test_listboxtypeahead.moc"
