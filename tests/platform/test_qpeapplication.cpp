// SPDX-License-Identifier: MIT
#include "platform/application/qpeapplication.h"
#include "tests/platform/probe.h"

#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <functional>

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
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
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
    QCoreApplication::setApplicationName(u"another"_qs);
    QCOMPARE(QGuiApplication::applicationDisplayName(), u"another"_qs);
    QCoreApplication::setApplicationName(name);
    QCOMPARE(name, u"teskel"_qs);
    QVERIFY(!QApplication::windowIcon().isNull());
}

void QPEApplicationTest::earlyDocumentsComeBeforeTheWindow()
{
    application()->openDocument(u"/a.PDB"_qs);
    application()->openDocument(u"/b ä.PDB"_qs);
    MainWidget widget;
    application()->showMainWidget(&widget);
    QCOMPARE(widget.documents, QStringList({u"/a.PDB"_qs, u"/b ä.PDB"_qs}));
    QCOMPARE(widget.visibleThen, QList<bool>({false, false}));
}

void QPEApplicationTest::laterDocumentsComeAtOnce()
{
    MainWidget widget;
    application()->showMainWidget(&widget);
    application()->openDocument(u"/a.PDB"_qs);
    QCOMPARE(widget.documents, QStringList({u"/a.PDB"_qs}));
    QCOMPARE(widget.visibleThen, QList<bool>({true}));
}

void QPEApplicationTest::documentDuringADocumentWaitsItsTurn()
{
    MainWidget widget;
    QStringList finished;
    widget.onDocument = [this, &finished](const QString& path) {
        if (path == u"/a.PDB"_qs)
            application()->openDocument(u"/b.PDB"_qs);
        finished.append(path);
    };
    application()->showMainWidget(&widget);
    application()->openDocument(u"/a.PDB"_qs);
    QCOMPARE(finished, QStringList({u"/a.PDB"_qs, u"/b.PDB"_qs}));
}

void QPEApplicationTest::widgetWithoutTheSlotIsLeftAlone()
{
    QWidget widget;
    application()->openDocument(u"/a.PDB"_qs);
    application()->showMainWidget(&widget);
    application()->openDocument(u"/b.PDB"_qs);
}

void QPEApplicationTest::documentAfterTheWidgetIsGoneIsKept()
{
    {
        QWidget widget;
        application()->showMainWidget(&widget);
    }
    QVERIFY(application()->mainWidget() == nullptr);
    application()->openDocument(u"/a.PDB"_qs);
    MainWidget next;
    application()->showMainWidget(&next);
    QCOMPARE(next.documents, QStringList({u"/a.PDB"_qs}));
}

void QPEApplicationTest::minimisedWindowComesBack()
{
    MainWidget widget;
    application()->showMainWidget(&widget);
    widget.setWindowState(widget.windowState() | Qt::WindowMinimized);
    application()->openDocument(u"/a.PDB"_qs);
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
    QTest::newRow("given") << u"/opt/Qtopia"_qs << u"/data"_qs << u"/opt/Qtopia"_qs;
    QTest::newRow("empty stays empty") << QString() << u"/data"_qs << QString();
    QTest::newRow("data home") << u"(unset)"_qs << u"/data"_qs << u"/data"_qs;
    QTest::newRow("no data home") << u"(unset)"_qs << u"(unset)"_qs << u"/home/me/.local/share"_qs;
}

void QPEApplicationTest::rootDirectory()
{
    QFETCH(QString, qpedir);
    QFETCH(QString, data);
    QFETCH(QString, root);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_qs, u"/home/me"_qs);
    environment.remove(u"QPEDIR"_qs);
    environment.remove(u"XDG_DATA_HOME"_qs);
    if (qpedir != u"(unset)"_qs)
        environment.insert(u"QPEDIR"_qs, qpedir);
    if (data != u"(unset)"_qs)
        environment.insert(u"XDG_DATA_HOME"_qs, data);
    Probe probe({}, environment);
    QVERIFY(probe.waitFor(u"running"_qs));
    QCOMPARE(probe.log().constFirst(), u"root "_qs + root);
}

void QPEApplicationTest::signalClosesTheWindow_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("when");
    QTest::addColumn<QStringList>("expected");
    const QStringList plain{u"closed"_qs, u"end"_qs};
    QTest::newRow("SIGTERM") << SIGTERM << QString() << u"running"_qs << plain;
    QTest::newRow("SIGINT") << SIGINT << QString() << u"running"_qs << plain;
    QTest::newRow("SIGHUP") << SIGHUP << QString() << u"running"_qs << plain;
    QTest::newRow("during a dialog")
        << SIGTERM << u"--dialog"_qs << u"dialog"_qs
        << QStringList({u"closed"_qs, u"dialog result 0"_qs, u"end"_qs});
    QTest::newRow("during a menu") << SIGTERM << u"--menu"_qs << u"menu"_qs << plain;
    QTest::newRow("during a box before the window")
        << SIGTERM << u"--box-first"_qs << u"box"_qs
        << QStringList({u"box gone"_qs, u"shown"_qs, u"running"_qs, u"closed"_qs, u"end"_qs});
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
    Probe probe({u"--refuse"_qs});
    QVERIFY(probe.waitFor(u"running"_qs));
    const auto id = static_cast<pid_t>(probe.processId());
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitFor(u"refused"_qs));
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().mid(probe.log().size() - 2), QStringList({u"closed"_qs, u"end"_qs}));
}

void QPEApplicationTest::ignoredHangupStaysIgnored()
{
    auto* const old = std::signal(SIGHUP, SIG_IGN);
    Probe probe({});
    std::signal(SIGHUP, old);
    QVERIFY(probe.waitFor(u"running"_qs));
    const auto id = static_cast<pid_t>(probe.processId());
    QCOMPARE(::kill(id, SIGHUP), 0);
    QVERIFY(!probe.waitForEnd(300));
    QCOMPARE(::kill(id, SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
}

void QPEApplicationTest::earlyDocumentOfARealProgram()
{
    Probe probe({u"--early"_qs});
    QVERIFY(probe.waitFor(u"running"_qs));
    QCOMPARE(probe.log().mid(1),
             QStringList({u"document /early.PDB"_qs, u"shown"_qs, u"running"_qs}));
}

int main(int argc, char** argv)
{
    QPEApplication application(argc, argv);
    QPEApplicationTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_qpeapplication.moc"
