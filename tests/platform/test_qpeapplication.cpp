// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"
#include "tests/platform/probe.h"

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

bool ignoresHangup(pid_t process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QString text = QString::fromLatin1(status.readAll());
    static const QRegularExpression mask(u"\\nSigIgn:\\s*([0-9a-f]+)\\n"_s);
    // The lowest bit stands for signal 1.
    return mask.match(text).captured(1).toULongLong(nullptr, 16) >> (SIGHUP - 1) & 1;
}

} // namespace

class MainWidget : public QWidget
{
    Q_OBJECT

public:
    QStringList documents;
    QList<bool> visibleThen;
    std::function<void(const QString&)> onDocument;

public slots:
    void setDocument(const QString& path)
    {
        documents.append(path);
        visibleThen.append(isVisible());
        if (onDocument)
            onDocument(path);
    }
};

class QPEApplicationTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void mainWidgetIsShownMaximised();
    void displayNameStaysEmpty();
    void threadsThatPaintedEndSoon();
    void earlyDocumentsComeBeforeTheWindow();
    void laterDocumentsComeAtOnce();
    void documentDuringADocumentWaitsItsTurn();
    void widgetWithoutTheSlotIsLeftAlone();
    void documentAfterTheWidgetIsGoneIsKept();
    void minimisedWindowComesBack();
    void endOfTheSessionClosesTheWindow();
    void rootDirectory_data();
    void rootDirectory();
    void signalClosesTheWindow_data();
    void signalClosesTheWindow();
    void windowMayRefuse();
    void ignoredHangupStaysIgnored();
    void earlyDocumentOfARealProgram();

private:
    static QPEApplication* application() { return static_cast<QPEApplication*>(qApp); }
};

void QPEApplicationTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
}

void QPEApplicationTest::mainWidgetIsShownMaximised()
{
    QWidget widget;
    application()->showMainWidget(&widget);
    QVERIFY(widget.isVisible());
    QVERIFY(widget.isMaximized());
    QCOMPARE(application()->mainWidget(), &widget);
}

void QPEApplicationTest::displayNameStaysEmpty()
{
    // Unset, it follows the program's name; set, the windowing system would add it to captions.
    const QString name = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(u"another"_s);
    QCOMPARE(QGuiApplication::applicationDisplayName(), u"another"_s);
    QCoreApplication::setApplicationName(name);
    QCOMPARE(name, u"teskel"_s);
    QVERIFY(!QApplication::windowIcon().isNull());
}

void QPEApplicationTest::threadsThatPaintedEndSoon()
{
    const auto workers = [] {
        int count = 0;
        const QDir tasks(u"/proc/self/task"_s);
        for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile name(tasks.filePath(task + u"/comm"_s));
            count += name.open(QIODevice::ReadOnly) && name.readAll() == "Thread (pooled)\n";
        }
        return count;
    };
    std::atomic<int> seen = 0;
    QThreadPool::globalInstance()->start([&] { seen = workers(); });
    QTRY_VERIFY(seen > 0);
    QTRY_COMPARE(workers(), 0);
}

void QPEApplicationTest::earlyDocumentsComeBeforeTheWindow()
{
    application()->openDocument(u"/a.PDB"_s);
    application()->openDocument(u"/b ä.PDB"_s);
    MainWidget widget;
    application()->showMainWidget(&widget);
    QCOMPARE(widget.documents, QStringList({u"/a.PDB"_s, u"/b ä.PDB"_s}));
    QCOMPARE(widget.visibleThen, QList<bool>({false, false}));
}

void QPEApplicationTest::laterDocumentsComeAtOnce()
{
    MainWidget widget;
    application()->showMainWidget(&widget);
    application()->openDocument(u"/a.PDB"_s);
    QCOMPARE(widget.documents, QStringList({u"/a.PDB"_s}));
    QCOMPARE(widget.visibleThen, QList<bool>({true}));
}

void QPEApplicationTest::documentDuringADocumentWaitsItsTurn()
{
    MainWidget widget;
    QStringList finished;
    widget.onDocument = [&finished](const QString& path) {
        if (path == u"/a.PDB"_s)
            application()->openDocument(u"/b.PDB"_s);
        finished.append(path);
    };
    application()->showMainWidget(&widget);
    application()->openDocument(u"/a.PDB"_s);
    QCOMPARE(finished, QStringList({u"/a.PDB"_s, u"/b.PDB"_s}));
}

void QPEApplicationTest::widgetWithoutTheSlotIsLeftAlone()
{
    QWidget widget;
    application()->openDocument(u"/a.PDB"_s);
    application()->showMainWidget(&widget);
    application()->openDocument(u"/b.PDB"_s);
}

void QPEApplicationTest::documentAfterTheWidgetIsGoneIsKept()
{
    {
        QWidget widget;
        application()->showMainWidget(&widget);
    }
    QVERIFY(application()->mainWidget() == nullptr);
    application()->openDocument(u"/a.PDB"_s);
    MainWidget next;
    application()->showMainWidget(&next);
    QCOMPARE(next.documents, QStringList({u"/a.PDB"_s}));
}

void QPEApplicationTest::minimisedWindowComesBack()
{
    MainWidget widget;
    application()->showMainWidget(&widget);
    widget.setWindowState(widget.windowState() | Qt::WindowMinimized);
    application()->openDocument(u"/a.PDB"_s);
    QVERIFY(!widget.isMinimized());
}

void QPEApplicationTest::endOfTheSessionClosesTheWindow()
{
    // What the session manager's last word becomes.
    QWidget widget;
    application()->showMainWidget(&widget);
    QTimer::singleShot(0, qApp, [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    });
    QCOMPARE(QPEApplication::exec(), 0);
    QVERIFY(!widget.isVisible());
}

void QPEApplicationTest::rootDirectory_data()
{
    QTest::addColumn<QString>("qpedir"); // "(unset)" for none
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("root");
    QTest::newRow("given") << u"/opt/Qtopia"_s << u"/data"_s << u"/opt/Qtopia"_s;
    QTest::newRow("empty stays empty") << QString() << u"/data"_s << QString();
    QTest::newRow("data home") << u"(unset)"_s << u"/data"_s << u"/data"_s;
    QTest::newRow("no data home") << u"(unset)"_s << u"(unset)"_s << u"/home/me/.local/share"_s;
}

void QPEApplicationTest::rootDirectory()
{
    QFETCH(QString, qpedir);
    QFETCH(QString, data);
    QFETCH(QString, root);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, u"/home/me"_s);
    environment.remove(u"QPEDIR"_s);
    environment.remove(u"XDG_DATA_HOME"_s);
    if (qpedir != u"(unset)"_s)
        environment.insert(u"QPEDIR"_s, qpedir);
    if (data != u"(unset)"_s)
        environment.insert(u"XDG_DATA_HOME"_s, data);
    Probe probe({}, environment);
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(probe.log().constFirst(), u"root "_s + root);
}

void QPEApplicationTest::signalClosesTheWindow_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("when");
    QTest::addColumn<QStringList>("expected");
    const QStringList plain{u"closed"_s, u"end"_s};
    QTest::newRow("SIGTERM") << SIGTERM << QString() << u"running"_s << plain;
    QTest::newRow("SIGINT") << SIGINT << QString() << u"running"_s << plain;
    QTest::newRow("SIGHUP") << SIGHUP << QString() << u"running"_s << plain;
    QTest::newRow("during a dialog") << SIGTERM << u"--dialog"_s << u"dialog"_s
                                     << QStringList({u"closed"_s, u"dialog result 0"_s, u"end"_s});
    QTest::newRow("during a menu") << SIGTERM << u"--menu"_s << u"menu"_s << plain;
    QTest::newRow("during a box before the window")
        << SIGTERM << u"--box-first"_s << u"box"_s
        << QStringList({u"box gone"_s, u"shown"_s, u"running"_s, u"closed"_s, u"end"_s});
}

void QPEApplicationTest::signalClosesTheWindow()
{
    QFETCH(int, number);
    QFETCH(QString, mode);
    QFETCH(QString, when);
    Probe probe({mode});
    QVERIFY(probe.waitFor(when));
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), number), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.exitCode(), 0);
    const QStringList log = probe.log();
    QStringList after = log.mid(log.indexOf(when) + 1);
    after.sort();
    QFETCH(QStringList, expected);
    expected.sort();
    QCOMPARE(after, expected);
}

void QPEApplicationTest::windowMayRefuse()
{
    Probe probe({u"--refuse"_s});
    QVERIFY(probe.waitFor(u"running"_s));
    const auto id = static_cast<pid_t>(probe.processId());
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitFor(u"refused"_s));
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().mid(probe.log().size() - 2), QStringList({u"closed"_s, u"end"_s}));
}

void QPEApplicationTest::ignoredHangupStaysIgnored()
{
    auto* const old = std::signal(SIGHUP, SIG_IGN);
    Probe probe({});
    std::signal(SIGHUP, old);
    QVERIFY(probe.waitFor(u"running"_s));
    const auto id = static_cast<pid_t>(probe.processId());
    QVERIFY(ignoresHangup(id));
    QCOMPARE(::kill(id, SIGHUP), 0);
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
}

void QPEApplicationTest::earlyDocumentOfARealProgram()
{
    Probe probe({u"--early"_s});
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s}));
}

int main(int argc, char** argv)
{
    QPEApplication application(argc, argv);
    QPEApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_qpeapplication.moc"
