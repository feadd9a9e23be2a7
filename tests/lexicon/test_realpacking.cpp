// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"
#include "lexicon/packing/arjmember.h"
#include "lexicon/sources/input/inputfile.h"
#include "tests/lexicon/packedarchive.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using teskel::ArjEncoder;
using teskel::ArjMember;
using teskel::test::runArchiver;

/// The text of a real dictionary in records of many sizes, packed with every method: our own
/// decoder and two independent programs unpack each record to what it was.
class TestRealPacking : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyUnpackerGivesTheTextBack_data();
    void everyUnpackerGivesTheTextBack();

private:
    QByteArray _text;
    QString _arj;
    QString _sevenZip;
};

namespace
{

/// The files 0, 1, 2... of a directory, one behind the other.
QByteArray joinedFiles(const QString& directory, qsizetype count)
{
    QByteArray joined;
    for (qsizetype index = 0; index < count; ++index) {
        QFile file(QDir(directory).filePath(QString::number(index)));
        if (!file.open(QIODevice::ReadOnly))
            return "cannot open " + file.fileName().toUtf8();
        joined += file.readAll();
    }
    return joined;
}

QByteArray unpackedHere(const QByteArrayList& members)
{
    QByteArray joined;
    for (const QByteArray& member : members) {
        teskel::MemberBlock block;
        const auto status =
            teskel::decodeMember(member.constData(), static_cast<size_t>(member.size()), block);
        if (status != teskel::MemberStatus::Ok)
            return teskel::memberStatusText(status);
        joined.append(block.data.get(), static_cast<qsizetype>(block.size));
    }
    return joined;
}

} // namespace

void TestRealPacking::initTestCase()
{
    _arj = QStandardPaths::findExecutable(u"arj"_s);
    _sevenZip = QStandardPaths::findExecutable(u"7zz"_s);
    QVERIFY2(!_arj.isEmpty() && !_sevenZip.isEmpty(), "needs the Debian packages arj and 7zip");
    teskel::InputFile dictionary;
    std::string error;
    QVERIFY2(dictionary.open("/usr/share/dictd/freedict-ell-eng.dict.dz", error), error.c_str());
    std::string piece;
    while (dictionary.readNext(piece, error) && !piece.empty())
        _text += QByteArray::fromStdString(piece);
    QVERIFY2(error.empty(), error.c_str());
    QVERIFY(_text.size() > 1'000'000);
}

void TestRealPacking::everyUnpackerGivesTheTextBack_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<int>("recordSize");
    for (int method = 1; method <= 4; ++method) {
        for (const int size : {1, 300, 2000, 8000, 16000, 32000, 32767})
            QTest::addRow("method %d, records of %d bytes", method, size) << method << size;
    }
}

void TestRealPacking::everyUnpackerGivesTheTextBack()
{
    QFETCH(int, method);
    QFETCH(int, recordSize);
    constexpr qsizetype mostRecords = 400;
    const QByteArray text = _text.left(mostRecords * recordSize);
    QByteArrayList members;
    ArjEncoder encoder(method);
    for (qsizetype begin = 0; begin < text.size(); begin += recordSize)
        members += QByteArray::fromStdString(
            ArjMember::pack(text.mid(begin, recordSize).toStdString(), encoder));
    QVERIFY(unpackedHere(members) == text);

    const QTemporaryDir directory;
    QVERIFY(
        teskel::test::writeFile(directory.filePath(u"a.arj"_s), teskel::test::archiveOf(members)));
    const QStringList arguments = {u"e"_s, u"-y"_s, u"../a.arj"_s};
    for (const QString& program : {_arj, _sevenZip}) {
        const QString target = directory.filePath(QFileInfo(program).fileName());
        QVERIFY(QDir().mkpath(target));
        QCOMPARE(runArchiver(program, arguments, target), 0);
        QVERIFY2(joinedFiles(target, members.size()) == text, qUtf8Printable(program));
    }
}

QTEST_GUILESS_MAIN(TestRealPacking)
#include "test_realpacking.moc"
