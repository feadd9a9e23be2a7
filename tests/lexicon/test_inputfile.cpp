// SPDX-License-Identifier: MIT
#include "lexicon/entries/scratchfile.h"
#include "lexicon/sources/input/inputfile.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using teskel::InputFile;
using teskel::test::writeFile;

/// Reads inputs, packed and not, by whole, by piece and by line, and refuses what is damaged or no
/// file. The packers are the independent programs.
class TestInputFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readsWhatWasPacked_data();
    void readsWhatWasPacked();
    void readsPiecesInAnyOrder_data();
    void readsPiecesInAnyOrder();
    void readsLines_data();
    void readsLines();
    void refusesLinesBeyondAllMeasure();
    void headIsStillToBeRead();
    void severalMembersAreOneInput_data();
    void severalMembersAreOneInput();
    void paddingBehindMembersIsNoData();
    void refusesDamage_data();
    void refusesDamage();
    void refusesEveryTruncation_data();
    void refusesEveryTruncation();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void refusesPiecesBeyondTheEnd_data();
    void refusesPiecesBeyondTheEnd();
    void noticesThatTheFileChanged();
    void saysWhereNothingCanBeUnpackedTo();

private:
    std::string stage(const QByteArray& content, const QString& packer) const;
    std::string stdPath(const char* name) const
    {
        return _directory.filePath(QString::fromUtf8(name)).toStdString();
    }
    static QByteArray packed(const QByteArray& content, const QString& packer);

    QTemporaryDir _directory;
    QByteArray _numbers; ///< several steps long
};

namespace
{
void addPackers()
{
    QTest::addColumn<QString>("packer");
    for (const char* packer : {"", "gzip", "dictzip", "xz", "zstd"})
        QTest::newRow(*packer ? packer : "not packed") << QString::fromLatin1(packer);
}

/// What is still to be read; nothing when not all of it can be read.
QByteArray readRest(InputFile& file, std::string& error)
{
    std::string content;
    std::string piece;
    do {
        if (!file.readNext(piece, error))
            return {};
        content += piece;
    } while (!piece.empty());
    return QByteArray::fromStdString(content);
}

QByteArray readAll(const std::string& path, std::string& error)
{
    InputFile file;
    return file.open(path, error) ? readRest(file, error) : QByteArray();
}
} // namespace

void TestInputFile::initTestCase()
{
    for (int i = 0; _numbers.size() < 900000; ++i)
        _numbers += QByteArray::number(i * 7) + '\n';
}

QByteArray TestInputFile::packed(const QByteArray& content, const QString& packer)
{
    QProcess process;
    process.start(packer, {u"-c"_s});
    process.write(content);
    process.closeWriteChannel();
    return process.waitForFinished() && process.exitCode() == 0 ? process.readAllStandardOutput()
                                                                : QByteArray();
}

std::string TestInputFile::stage(const QByteArray& content, const QString& packer) const
{
    const QString path = _directory.filePath(u"input"_s);
    if (packer == "dictzip"_L1) { // packs files only
        QFile::remove(path + u".dz"_s);
        if (!writeFile(path, content) || QProcess::execute(packer, {path}) != 0)
            return {};
        return (path + u".dz"_s).toStdString();
    }
    return writeFile(path, packer.isEmpty() ? content : packed(content, packer))
               ? path.toStdString()
               : std::string();
}

void TestInputFile::readsWhatWasPacked_data()
{
    addPackers();
}

void TestInputFile::readsWhatWasPacked()
{
    QFETCH(QString, packer);
    for (const QByteArray& content : {QByteArray(), QByteArray("x"), _numbers}) {
        std::string error;
        const std::string path = stage(content, packer);
        QVERIFY2(!path.empty(), qPrintable(packer + u" is needed for this test"_s));
        QVERIFY(readAll(path, error) == content);
        QCOMPARE(error, std::string());
    }
}

void TestInputFile::readsPiecesInAnyOrder_data()
{
    addPackers();
}

void TestInputFile::readsPiecesInAnyOrder()
{
    QFETCH(QString, packer);
    InputFile file;
    std::string error;
    QVERIFY(file.open(stage(_numbers, packer), error));
    QCOMPARE(file.isPacked(), !packer.isEmpty());
    std::string piece;
    for (const qsizetype size : {1, 70000, 600000}) {
        for (qsizetype offset = 0; offset + size <= _numbers.size(); offset += 99991) {
            QVERIFY(file.read(static_cast<uint64_t>(offset), static_cast<uint64_t>(size), piece,
                              error));
            QVERIFY(QByteArray::fromStdString(piece) == _numbers.mid(offset, size));
        }
    }
}

void TestInputFile::readsLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("nothing") << QByteArray() << QByteArrayList();
    QTest::newRow("one empty line") << QByteArray("\n") << QByteArrayList{""};
    QTest::newRow("ended") << QByteArray("a\nb\n") << QByteArrayList{"a", "b"};
    QTest::newRow("not ended") << QByteArray("a\n\nb") << QByteArrayList{"a", "", "b"};
    QTest::newRow("longer than a step")
        << QByteArray(600000, 'x') + "\n" + QByteArray(300000, 'y') + "\nz"
        << QByteArrayList{QByteArray(600000, 'x'), QByteArray(300000, 'y'), "z"};
    _numbers.chop(1);
    QTest::newRow("many") << _numbers + "\n" << _numbers.split('\n');
    _numbers += '\n';
}

void TestInputFile::readsLines()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArrayList, lines);
    InputFile file;
    std::string error;
    QVERIFY(file.open(stage(content, {}), error));
    QByteArrayList read;
    std::string line;
    bool isEnd = false;
    while (file.readLine(line, isEnd, error) && !isEnd)
        read += QByteArray::fromStdString(line);
    QCOMPARE(error, std::string());
    QVERIFY(read == lines);
}

void TestInputFile::refusesLinesBeyondAllMeasure()
{
    InputFile file;
    std::string error;
    const std::string path =
        stage("short\n" + QByteArray(InputFile::largestPiece + (1 << 20), 'x'), u"gzip"_s);
    QVERIFY(file.open(path, error));
    std::string line;
    bool isEnd = false;
    QVERIFY(file.readLine(line, isEnd, error));
    QCOMPARE(line, std::string("short"));
    QVERIFY(!file.readLine(line, isEnd, error));
    QCOMPARE(error, path + ": a line is longer than 4 MiB");
}

void TestInputFile::headIsStillToBeRead()
{
    InputFile file;
    std::string error;
    QVERIFY(file.open(stage(_numbers, u"xz"_s), error));
    QCOMPARE(std::string(file.head(4)), std::string("0\n7\n"));
    QVERIFY(readRest(file, error) == _numbers);
    QCOMPARE(error, std::string());
}

void TestInputFile::severalMembersAreOneInput_data()
{
    QTest::addColumn<QString>("packer");
    for (const char* packer : {"gzip", "xz", "zstd"})
        QTest::newRow(packer) << QString::fromLatin1(packer);
}

void TestInputFile::severalMembersAreOneInput()
{
    QFETCH(QString, packer);
    QVERIFY(writeFile(_directory.filePath(u"members"_s),
                      packed("one ", packer) + packed({}, packer) + packed("two", packer)));
    std::string error;
    QCOMPARE(readAll(stdPath("members"), error), QByteArray("one two"));
}

void TestInputFile::paddingBehindMembersIsNoData()
{
    QVERIFY(writeFile(_directory.filePath(u"padded"_s),
                      packed("one", u"gzip"_s) + QByteArray(100, '\0')));
    std::string error;
    QCOMPARE(readAll(stdPath("padded"), error), QByteArray("one"));
}

void TestInputFile::refusesDamage_data()
{
    QTest::addColumn<QString>("packer");
    QTest::addColumn<int>("keptPercent");
    QTest::addColumn<int>("flippedFromEnd");
    for (const char* packer : {"gzip", "xz", "zstd"}) {
        const QString name = QString::fromLatin1(packer);
        QTest::addRow("%s, nearly all cut off", packer) << name << 1 << 0;
        QTest::addRow("%s, half cut off", packer) << name << 50 << 0;
        QTest::addRow("%s, a bit wrong in the middle", packer) << name << 100 << 50000;
    }
    QTest::newRow("gzip, checksum wrong") << u"gzip"_s << 100 << 8;
    QTest::newRow("gzip, length wrong") << u"gzip"_s << 100 << 4;
    QTest::newRow("zstd, checksum wrong") << u"zstd"_s << 100 << 4;
}

void TestInputFile::refusesDamage()
{
    QFETCH(QString, packer);
    QFETCH(int, keptPercent);
    QFETCH(int, flippedFromEnd);
    QByteArray bytes = packed(_numbers, packer);
    bytes.truncate(bytes.size() * keptPercent / 100);
    const qsizetype place = std::max<qsizetype>(bytes.size() - flippedFromEnd, bytes.size() / 2);
    if (flippedFromEnd > 0)
        bytes[place] = static_cast<char>(bytes[place] ^ 4);
    QVERIFY(writeFile(_directory.filePath(u"damaged"_s), bytes));
    const std::string path = stdPath("damaged");
    std::string error;
    QCOMPARE(readAll(path, error), QByteArray());
    QCOMPARE(error, path + " is damaged: it cannot be unpacked");

    InputFile file;
    error.clear();
    std::string line;
    bool isEnd = false;
    QVERIFY(file.open(path, error));
    while (file.readLine(line, isEnd, error) && !isEnd) {
    }
    QCOMPARE(error, path + " is damaged: it cannot be unpacked");
}

void TestInputFile::refusesEveryTruncation_data()
{
    QTest::addColumn<QString>("packer");
    QTest::addColumn<QByteArray>("content");
    for (const char* packer : {"gzip", "xz", "zstd"}) {
        QTest::addRow("%s", packer) << QString::fromLatin1(packer) << QByteArray("house");
        QTest::addRow("%s, empty", packer) << QString::fromLatin1(packer) << QByteArray();
    }
}

void TestInputFile::refusesEveryTruncation()
{
    QFETCH(QString, packer);
    QFETCH(QByteArray, content);
    const QByteArray whole = packed(content, packer);
    for (qsizetype size = 6; size < whole.size(); ++size) { // with fewer bytes it is any file
        QVERIFY(writeFile(_directory.filePath(u"cut"_s), whole.left(size)));
        std::string error;
        QCOMPARE(readAll(stdPath("cut"), error), QByteArray());
        QVERIFY2(error == stdPath("cut") + " is damaged: it cannot be unpacked",
                 qPrintable(u"%1 of %2 bytes"_s.arg(size).arg(whole.size())));
    }
}

void TestInputFile::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray irregular = "it is no regular file (\"-\" reads the standard input)";
    QTest::newRow("nothing") << QByteArray("missing") << QByteArray("No such file or directory");
    QTest::newRow("directory") << QByteArray(".") << QByteArray("Is a directory");
    QTest::newRow("pipe") << QByteArray("pipe") << irregular;
    QTest::newRow("device") << QByteArray("/dev/zero") << irregular;
}

void TestInputFile::refusesWhatIsNoFile()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, reason);
    ::mkfifo(stdPath("pipe").c_str(), 0600);
    const std::string name = path.startsWith('/') ? path.toStdString() : stdPath(path.constData());
    InputFile file;
    std::string error;
    QVERIFY(!file.open(name, error));
    QCOMPARE(error, "cannot read " + name + ": " + reason.toStdString());
}

void TestInputFile::refusesPiecesBeyondTheEnd_data()
{
    addPackers();
}

void TestInputFile::refusesPiecesBeyondTheEnd()
{
    QFETCH(QString, packer);
    InputFile file;
    std::string error;
    std::string piece;
    const std::string path = stage("12345", packer);
    QVERIFY(file.open(path, error));
    QVERIFY(!file.read(5, 1, piece, error));
    QCOMPARE(error, path + " is damaged or too short: 1 byte at 5 cannot be read");
    QVERIFY(!file.read(0, InputFile::largestPiece, piece, error));
    QCOMPARE(error, path + " is damaged or too short: 4194304 bytes at 0 cannot be read");
    QVERIFY(!file.read(0, 1ULL << 47, piece, error));
    QCOMPARE(error, path + ": 140737488355328 bytes at 0 are more than the 4 MiB that an article "
                           "may have");
    QVERIFY(file.read(4, 1, piece, error));
    QCOMPARE(piece, std::string("5"));
    QVERIFY(file.read(5, 0, piece, error));
}

void TestInputFile::noticesThatTheFileChanged()
{
    const std::string path = stage("house\tHaus\n", {});
    InputFile file;
    std::string error;
    QVERIFY(file.open(path, error) && file.checkUnchanged(error));
    QFile changed(QString::fromStdString(path));
    QVERIFY(changed.open(QIODevice::Append) && changed.write("x") == 1);
    changed.close();
    QVERIFY(!file.checkUnchanged(error));
    QCOMPARE(error, path + " was changed while it was read");
}

void TestInputFile::saysWhereNothingCanBeUnpackedTo()
{
    // What is small is held in memory.
    const std::string path =
        stage(QByteArray(2 * qsizetype{teskel::ScratchFile::heldBytes}, 'x'), u"gzip"_s);
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/no/such/place");
    InputFile file;
    std::string error;
    std::string piece;
    const bool isRead = file.open(path, error) && file.read(0, 1, piece, error);
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(!isRead);
    QCOMPARE(error, std::string("cannot make a temporary file in /no/such/place: No such file or "
                                "directory"));
}

QTEST_GUILESS_MAIN(TestInputFile)
#include "test_inputfile.moc"
