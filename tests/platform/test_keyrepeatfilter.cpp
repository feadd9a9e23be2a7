// SPDX-License-Identifier: MIT
#include "platform/keyrepeatfilter.h"

#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <QtTest>

namespace
{

// Writes down key events: "+" press, "-" release, "*" for a repeat.
class Listener : public QWidget
{
public:
    QString log;

protected:
    void keyPressEvent(QKeyEvent* event) override { note(u'+', event); }
    void keyReleaseEvent(QKeyEvent* event) override { note(u'-', event); }

private:
    void note(QChar mark, const QKeyEvent* event)
    {
        log += mark;
        log += event->key() == Qt::Key_Down ? u'd' : u'x';
        if (event->isAutoRepeat())
            log += u'*';
    }
};

} // namespace

class KeyRepeatFilterTest : public QObject
{
    Q_OBJECT

private slots:
    void repeats_data();
    void repeats();
};

void KeyRepeatFilterTest::repeats_data()
{
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("received");
    QTest::newRow("no repeat") << u"+d-d"_qs << u"+d-d"_qs;
    QTest::newRow("presses only") << u"+d+d*+d*-d"_qs << u"+d-d*+d*-d*+d*-d"_qs;
    QTest::newRow("pairs stay as they are") << u"+d-d*+d*-d*+d*-d"_qs << u"+d-d*+d*-d*+d*-d"_qs;
    QTest::newRow("second key takes over") << u"+d+d*+x+x*-x-d"_qs << u"+d-d*+d*+x-x*+x*-x-d"_qs;
    QTest::newRow("repeat whose press went elsewhere") << u"+d*+d*-d"_qs << u"+d*-d*+d*-d"_qs;
    QTest::newRow("two full presses") << u"+d-d+d-d"_qs << u"+d-d+d-d"_qs;
}

void KeyRepeatFilterTest::repeats()
{
    QFETCH(QString, sent);
    teskel::KeyRepeatFilter filter;
    qApp->installEventFilter(&filter);
    Listener listener;
    listener.show();
    QVERIFY(QTest::qWaitForWindowExposed(&listener));
    for (qsizetype i = 0; i + 1 < sent.size(); i += 2) {
        const auto type = sent[i] == u'+' ? QEvent::KeyPress : QEvent::KeyRelease;
        const int key = sent[i + 1] == u'd' ? Qt::Key_Down : Qt::Key_X;
        const bool repeat = i + 2 < sent.size() && sent[i + 2] == u'*';
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeat);
        QCoreApplication::sendEvent(listener.windowHandle(), &event);
        if (repeat)
            ++i;
    }
    QTEST(listener.log, "received");
}

QTEST_MAIN(KeyRepeatFilterTest)
#include "test_keyrepeatfilter.moc"
