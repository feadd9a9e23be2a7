// SPDX-License-Identifier: MIT
#include "platform/application/keyrepeatfilter.h"

#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr quint32 digitScanCode = 10;

// "d" Down, "s" Shift, "1" and "!" the same key without and with Shift, "x" another key.
int keyOf(QChar letter)
{
    switch (letter.unicode()) {
    case u'd':
        return Qt::Key_Down;
    case u's':
        return Qt::Key_Shift;
    case u'1':
        return Qt::Key_1;
    case u'!':
        return Qt::Key_Exclam;
    default:
        return Qt::Key_X;
    }
}

QChar letterOf(int key)
{
    for (const QChar letter : QStringView(u"ds1!")) {
        if (keyOf(letter) == key)
            return letter;
    }
    return u'x';
}

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
        log += letterOf(event->key());
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
    QTest::newRow("no repeat") << u"+d-d"_s << u"+d-d"_s;
    QTest::newRow("presses only") << u"+d+d*+d*-d"_s << u"+d-d*+d*-d*+d*-d"_s;
    QTest::newRow("pairs stay as they are") << u"+d-d*+d*-d*+d*-d"_s << u"+d-d*+d*-d*+d*-d"_s;
    QTest::newRow("second key takes over") << u"+d+d*+x+x*-x-d"_s << u"+d-d*+d*+x-x*+x*-x-d"_s;
    QTest::newRow("Shift goes down") << u"+d+d*+s+d*-d-s"_s << u"+d-d*+d*+s-d*+d*-d-s"_s;
    QTest::newRow("Shift goes up") << u"+s+d+d*-s+d*-d"_s << u"+s+d-d*+d*-s-d*+d*-d"_s;
    QTest::newRow("another key is tapped") << u"+d+d*+x-x+d*-d"_s << u"+d-d*+d*+x-x-d*+d*-d"_s;
    QTest::newRow("pairs while Shift is tapped")
        << u"+d-d*+d*+s-d*+d*-s-d*+d*-d"_s << u"+d-d*+d*+s-d*+d*-s-d*+d*-d"_s;
    QTest::newRow("Shift changes what the held key means")
        << u"+1+1*+s+!*-!-s"_s << u"+1-1*+1*+s-!*+!*-!-s"_s;
    QTest::newRow("Shift changes what the released key means")
        << u"+s+!+!*-s-1+1-1+!*"_s << u"+s+!-!*+!*-s-1+1-1+!*"_s;
    QTest::newRow("repeat whose press went elsewhere") << u"+d*+d*-d"_s << u"+d*-d*+d*-d"_s;
    QTest::newRow("two full presses") << u"+d-d+d-d"_s << u"+d-d+d-d"_s;
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
        const int key = keyOf(sent[i + 1]);
        const bool isDigit = key == Qt::Key_1 || key == Qt::Key_Exclam;
        const bool repeat = i + 2 < sent.size() && sent[i + 2] == u'*';
        QKeyEvent event(type, key, Qt::NoModifier, isDigit ? digitScanCode : 0, 0, 0, QString(),
                        repeat);
        QCoreApplication::sendEvent(listener.windowHandle(), &event);
        if (repeat)
            ++i;
    }
    QTEST(listener.log, "received");
}

QTEST_MAIN(KeyRepeatFilterTest)
#include "test_keyrepeatfilter.moc"
