// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/fulldisk.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QtTest>

#include <cerrno>
#include <optional>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using teskel::test::FileSizeLimit;
using teskel::test::FullDisk;
using teskel::test::writeFile;

namespace
{

bool syncFails = false;

/// What was in the settings file whenever the directory with it was synchronised.
struct DirectorySyncs {
    QString file;
    QByteArrayList contents;
    int error = 0;
};
DirectorySyncs directorySyncs;

bool isDirectory(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

/// Stands in front of the C library's: a disk that takes the bytes and cannot keep them.
extern "C" int fsync(int file)
{
    if (!directorySyncs.file.isEmpty() && isDirectory(file)) {
        QFile settings(directorySyncs.file);
        directorySyncs.contents.append(settings.open(QIODevice::ReadOnly) ? settings.readAll()
                                                                          : QByteArray());
        errno = directorySyncs.error;
        return directorySyncs.error == 0 ? 0 : -1;
    }
    if (syncFails) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}

/// Settings on a disk that takes no more.
class ConfigDiskTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fullDiskKeepsTheOldSettings_data();
    void fullDiskKeepsTheOldSettings();
    void limitedFileSizeKeepsTheOldSettings_data();
    void limitedFileSizeKeepsTheOldSettings();
    void limitedFileSizeLeavesNoBackups();
    void failedSynchronisationKeepsTheOldSettings();
    void replacementIsMadeToLast_data();
    void replacementIsMadeToLast();
    void settingsAreWrittenWhenThereIsRoomAgain();

private:
    static QByteArray settings(qsizetype words);
    static QByteArray stored(const QString& path);
    static bool change(const QString& path);
};

void ConfigDiskTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    syncFails = false;
    directorySyncs = {};
}

QByteArray ConfigDiskTest::settings(qsizetype words)
{
    return "[MRU List]\nList0 = " + QByteArray(words, 'w') + "\n[g]\nk = 1\n";
}

QByteArray ConfigDiskTest::stored(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool ConfigDiskTest::change(const QString& path)
{
    Config config(path, Config::File);
    config.setGroup(u"/cards/Eng2Ger.PDB"_s);
    return config.write();
}

void ConfigDiskTest::fullDiskKeepsTheOldSettings_data()
{
    QTest::addColumn<qsizetype>("words");
    QTest::addColumn<qint64>("left");
    QTest::newRow("a few settings") << qsizetype(100) << qint64(0);
    QTest::newRow("more than a buffer") << qsizetype(20'000) << qint64(0);
    QTest::newRow("room for a part") << qsizetype(6'000) << qint64(4096);
    QTest::newRow("room for a part of more than a buffer") << qsizetype(20'000) << qint64(8192);
}

void ConfigDiskTest::fullDiskKeepsTheOldSettings()
{
    const FullDisk disk;
    if (!disk.isMounted())
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QFETCH(qsizetype, words);
    QFETCH(qint64, left);
    const QString path = disk.path(u"Teskel.conf"_s);
    QVERIFY(writeFile(path, settings(words)));
    QVERIFY(disk.fill(left));
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(u"^The settings cannot be written to .*/Teskel.conf: No space left"_s));
    QVERIFY(!change(path));
    QCOMPARE(stored(path), settings(words));
    QCOMPARE(QDir(disk.path({})).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"filling"_s, u"Teskel.conf"_s}));
}

void ConfigDiskTest::limitedFileSizeKeepsTheOldSettings_data()
{
    QTest::addColumn<qsizetype>("words");
    QTest::addColumn<int>("limit");
    QTest::newRow("nothing fits") << qsizetype(100) << 0;
    QTest::newRow("a part fits") << qsizetype(100) << 60;
    QTest::newRow("all but a byte fits") << qsizetype(100) << 150;
    QTest::newRow("a part of more than a buffer fits") << qsizetype(20'000) << 17'000;
}

void ConfigDiskTest::limitedFileSizeKeepsTheOldSettings()
{
    QFETCH(qsizetype, words);
    QFETCH(int, limit);
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"Teskel.conf"_s);
    QVERIFY(writeFile(path, settings(words)));
    const QString reason = QRegularExpression::escape(QString::fromLocal8Bit(strerror(EFBIG)));
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(u"^The settings cannot be written to .*/Teskel.conf: "_s +
                                         reason + u'$'));
    std::optional<FileSizeLimit> limited(static_cast<rlim_t>(limit));
    const bool isWritten = change(path);
    limited.reset();
    QVERIFY(!isWritten);
    QCOMPARE(stored(path), settings(words));
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"Teskel.conf"_s}));
    QVERIFY(change(path));
}

/// However often it is tried to replace settings that are too large.
void ConfigDiskTest::limitedFileSizeLeavesNoBackups()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"Teskel.conf"_s);
    const QByteArray text(Config::largestFile + 1, '\n');
    QVERIFY(writeFile(path, text));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^The settings cannot be written to"_s));
    std::optional<FileSizeLimit> limited(0);
    for (int attempt = 0; attempt < 3; ++attempt)
        QVERIFY(!change(path));
    limited.reset();
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"Teskel.conf"_s}));
    QCOMPARE(stored(path), text);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"they are kept as .*\\.backup1$"_s));
    QVERIFY(change(path));
    QCOMPARE(stored(path + u".backup1"_s), text);
}

/// A network drive or a worn card says only then that it is full.
void ConfigDiskTest::failedSynchronisationKeepsTheOldSettings()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"Teskel.conf"_s);
    QVERIFY(writeFile(path, settings(100)));
    const QString reason = QRegularExpression::escape(QString::fromLocal8Bit(strerror(EIO)));
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression(u"^The settings cannot be written to .*/Teskel.conf: "_s +
                                         reason + u'$'));
    syncFails = true;
    QVERIFY(!change(path));
    QCOMPARE(stored(path), settings(100));
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({u"Teskel.conf"_s}));
}

void ConfigDiskTest::replacementIsMadeToLast_data()
{
    QTest::addColumn<bool>("isLink");
    QTest::addColumn<int>("error");
    QTest::newRow("file") << false << 0;
    QTest::newRow("link into another directory") << true << 0;
    QTest::newRow("file system without such a thing") << false << EINVAL;
    QTest::newRow("failed, which is no error") << false << EIO;
}

/// A new name is not on the disk before its directory is.
void ConfigDiskTest::replacementIsMadeToLast()
{
    QFETCH(bool, isLink);
    QFETCH(int, error);
    const QTemporaryDir directory;
    const QTemporaryDir other;
    const QString path = directory.filePath(u"Teskel.conf"_s);
    const QString real = isLink ? other.filePath(u"real.conf"_s) : path;
    QVERIFY(writeFile(real, settings(100)));
    if (isLink)
        QVERIFY(QFile::link(real, path));
    directorySyncs = {real, {}, error};
    QVERIFY(change(path));
    QCOMPARE(directorySyncs.contents, QByteArrayList({stored(real)}));
    QVERIFY(stored(real) != settings(100));
}

void ConfigDiskTest::settingsAreWrittenWhenThereIsRoomAgain()
{
    const FullDisk disk;
    if (!disk.isMounted())
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    const QString path = disk.path(u"Teskel.conf"_s);
    QVERIFY(writeFile(path, settings(100)));
    QVERIFY(disk.fill());
    Config config(path, Config::File);
    config.setGroup(u"g"_s);
    config.writeEntry(u"k"_s, 2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be written to"_s));
    QVERIFY(!config.write());
    QVERIFY(!config.write()); // and does not complain again
    QVERIFY(QFile::remove(disk.path(u"filling"_s)));
    QVERIFY(config.write());
    QCOMPARE(stored(path), settings(100).replace("k = 1", "k = 2"));
}

int main(int argc, char* argv[])
{
    (void)FullDisk::enterOwnMounts();
    QCoreApplication application(argc, argv);
    ConfigDiskTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_configdisk.moc"
