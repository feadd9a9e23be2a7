// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "tests/support/palmwriter.h"
#include "tests/support/systemcallfaults.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

#include <sys/syscall.h>

using namespace Qt::StringLiterals;

using teskel::test::runWithFault;
using teskel::test::writeFile;

/// Settings read, changed and written while one system call fails, each in its turn.
class ConfigFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void fileIsTheOldOneOrTheNewOne_data();
    void fileIsTheOldOneOrTheNewOne();

private:
    static QByteArray stored(const QString& path);
};

namespace
{

/// Warnings belong to what is tested, and printing them would be system calls too.
void sayNothing(QtMsgType, const QMessageLogContext&, const QString&) {}

QtMessageHandler usualHandler = nullptr;

/// Not every processor's kernel has all of them.
const QSet<int> renames{
#ifdef SYS_rename
    SYS_rename,
#endif
#ifdef SYS_renameat
    SYS_renameat,
#endif
    SYS_renameat2,
};

const QByteArray head("# mine\n[Other]\nColour = blue\n[ViewPreferences]\nPanelView = ");

void change(const QString& path)
{
    Config config(path, Config::File);
    config.setGroup(u"ViewPreferences"_s);
    config.writeEntry(u"PanelView"_s, 0);
    config.write();
}

} // namespace

void ConfigFaultsTest::initTestCase()
{
    if (!runWithFault([] {}, -1, EIO))
        QSKIP("this kernel lets no process watch its own system calls");
}

void ConfigFaultsTest::cleanupTestCase()
{
    qInstallMessageHandler(usualHandler);
}

QByteArray ConfigFaultsTest::stored(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
}

void ConfigFaultsTest::fileIsTheOldOneOrTheNewOne_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<qsizetype>("size"); // bytes behind the settings
    QTest::addColumn<bool>("isLink");
    for (const auto& [name, error] : {std::pair("full disk", ENOSPC),
                                      {"read error", EIO},
                                      {"read-only", EROFS},
                                      {"no permission", EACCES}}) {
        QTest::addRow("%s", name) << error << qsizetype(0) << false;
        QTest::addRow("%s, some buffers", name) << error << qsizetype(40'000) << false;
    }
    QTest::newRow("read error, too large to be read")
        << EIO << qsizetype(Config::largestFile) << false;
    QTest::newRow("read error, through a link") << EIO << qsizetype(0) << true;
}

void ConfigFaultsTest::fileIsTheOldOneOrTheNewOne()
{
    QFETCH(bool, isLink);
    QFETCH(int, error);
    QFETCH(qsizetype, size);
    const QByteArray tail = "\n#" + QByteArray(size, 'x') + '\n';
    const QByteArray old = head + '1' + tail;
    const bool isOversized = old.size() > Config::largestFile;
    const QByteArray changed =
        isOversized ? QByteArray("[ViewPreferences]\nPanelView = 0\n") : head + '0' + tail;
    usualHandler = qInstallMessageHandler(sayNothing);

    QSet<int> failed;
    for (qsizetype failing = 0;; ++failing) {
        const QTemporaryDir directory;
        const QString path = directory.filePath(u"Teskel.conf"_s);
        const QString real = isLink ? directory.filePath(u"real.conf"_s) : path;
        QVERIFY(writeFile(real, old));
        if (isLink)
            QVERIFY(QFile::link(real, path));
        const auto calls = runWithFault([&path] { change(path); }, failing, error);
        QVERIFY(calls);
        if (failing >= calls->size())
            break;
        const int call = calls->at(failing);
        failed.insert(call);
        const QByteArray found = stored(real);
        const bool isKept = isOversized && stored(path + u".backup1"_s) == old;
        const QByteArray what = QByteArray::number(failing) + ", system call number " +
                                QByteArray::number(call) + ": " + found.left(100);
        QVERIFY2(found == old || (found == changed && (isKept || !isOversized)), what.constData());
        // What failed was the system's, and the next attempt is as good as the first.
        change(path);
        QVERIFY2(stored(real) == changed, what.constData());
        QVERIFY2(QFileInfo(path).isSymLink() == isLink, what.constData());
    }
    qInstallMessageHandler(usualHandler);
    for (const int call : {SYS_write, SYS_fsync, SYS_close})
        QVERIFY2(failed.contains(call), qPrintable(QString::number(call)));
    QVERIFY(failed.intersects(renames));
}

QTEST_GUILESS_MAIN(ConfigFaultsTest)
#include "test_configfaults.moc"
