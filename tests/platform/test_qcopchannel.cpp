// SPDX-License-Identifier: MIT
#include "platform/qcopchannel.h"

#include <QSignalSpy>
#include <QtTest>

class QCopChannelTest : public QObject
{
    Q_OBJECT

private slots:
    void deliversThroughTheEventLoop();
    void reachesEveryListenerOfTheChannelOnly();
    void tellsWhetherAnybodyListens();
    void listenerGoneBeforeDeliveryGetsNothing();
    void listenerMayEndItselfOrOthers();
};

void QCopChannelTest::deliversThroughTheEventLoop()
{
    QCopChannel channel("QPE/Card");
    QCOMPARE(channel.channel(), QByteArray("QPE/Card"));
    QSignalSpy received(&channel, &QCopChannel::received);
    QVERIFY(QCopChannel::send("QPE/Card", "mtabChanged()", QByteArray("\0x", 2)));
    QCOMPARE(received.count(), 0);
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(received[0][0].toByteArray(), QByteArray("mtabChanged()"));
    QCOMPARE(received[0][1].toByteArray(), QByteArray("\0x", 2));
}

void QCopChannelTest::reachesEveryListenerOfTheChannelOnly()
{
    QCopChannel first("a");
    QCopChannel second("a");
    QCopChannel other("b");
    QSignalSpy firstReceived(&first, &QCopChannel::received);
    QSignalSpy secondReceived(&second, &QCopChannel::received);
    QSignalSpy otherReceived(&other, &QCopChannel::received);
    QCopChannel::send("a", "m");
    QTRY_COMPARE(secondReceived.count(), 1);
    QCOMPARE(firstReceived.count(), 1);
    QCOMPARE(otherReceived.count(), 0);
}

void QCopChannelTest::tellsWhetherAnybodyListens()
{
    QVERIFY(!QCopChannel::send("nobody", "m"));
    const QCopChannel channel("somebody");
    QVERIFY(QCopChannel::send("somebody", "m"));
}

void QCopChannelTest::listenerGoneBeforeDeliveryGetsNothing()
{
    int calls = 0;
    auto channel = std::make_unique<QCopChannel>("a");
    connect(channel.get(), &QCopChannel::received, this, [&calls] { ++calls; });
    QCopChannel::send("a", "m");
    channel.reset();
    QCopChannel last("a");
    QSignalSpy received(&last, &QCopChannel::received);
    QCopChannel::send("a", "n");
    QTRY_COMPARE(received.count(), 1);
    QCOMPARE(calls, 0);
}

void QCopChannelTest::listenerMayEndItselfOrOthers()
{
    QPointer<QCopChannel> first = new QCopChannel("a");
    QPointer<QCopChannel> second = new QCopChannel("a");
    connect(first, &QCopChannel::received, this, [&first, &second] {
        delete second;
        delete first;
    });
    QCopChannel::send("a", "m");
    QTRY_VERIFY(first.isNull());
    QVERIFY(second.isNull());
}

QTEST_GUILESS_MAIN(QCopChannelTest)
#include "test_qcopchannel.moc"
