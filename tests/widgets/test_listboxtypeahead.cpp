// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxtypeahead.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestListBoxTypeAhead : public QObject
{
    Q_OBJECT

private slots:
    void collectsInLowerCase();
    void expiresHalfASecondAfterTheLastKey();
    void clearEndsWaiting();
};

void TestListBoxTypeAhead::collectsInLowerCase()
{
    teskel::ListBoxTypeAhead typeAhead;
    typeAhead.append(u"H"_s);
    QCOMPARE(typeAhead.append(u"\u00D6U"_s), u"h\u00F6u"_s);
}

void TestListBoxTypeAhead::expiresHalfASecondAfterTheLastKey()
{
    teskel::ListBoxTypeAhead typeAhead;
    auto* timer = typeAhead.findChild<QTimer*>();
    typeAhead.append(u"a"_s);
    QVERIFY(timer->isActive() && timer->isSingleShot());
    QCOMPARE(timer->interval(), 500);
    QSignalSpy expired(&typeAhead, &teskel::ListBoxTypeAhead::expired);
    QVERIFY(expired.wait());
    QVERIFY(!timer->isActive());
}

void TestListBoxTypeAhead::clearEndsWaiting()
{
    teskel::ListBoxTypeAhead typeAhead;
    typeAhead.append(u"a"_s);
    typeAhead.clear();
    QVERIFY(!typeAhead.findChild<QTimer*>()->isActive());
    QCOMPARE(typeAhead.append(u"b"_s), u"b"_s);
}

QTEST_GUILESS_MAIN(TestListBoxTypeAhead)
#include "test_listboxtypeahead.moc"
