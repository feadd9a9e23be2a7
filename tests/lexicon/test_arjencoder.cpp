// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"
#include "lexicon/packing/arjmember.h"
#include "tests/lexicon/packedarchive.h"
#include "tests/support/palmwriter.h"

#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <zlib.h>

using namespace Qt::StringLiterals;

using teskel::ArjEncoder;
using teskel::ArjMember;
using teskel::test::runArchiver;

/// Packs blocks of many kinds with every method and lets our own decoder and two independent
/// programs unpack them.
class TestArjEncoder : public QObject
{
    Q_OBJECT

private slots:
    void ownDecoderUnpacksIt_data();
    void ownDecoderUnpacksIt();
    void arjAndSevenZipUnpackIt_data();
    void arjAndSevenZipUnpackIt();
    void sameBlockGivesSameBytesWhateverCameBefore();
    void emptyBlockPacksToNothing();
    void betterMethodsPackTextSmaller();
    void headerChecksumHolds();
};

namespace
{

QByteArray randomBytes(int count, quint32 values)
{
    QRandomGenerator generator(4711);
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(generator.bounded(values));
    return bytes;
}

QByteArray text(int count)
{
    static const char* const words[] = {"house",     "Haus", "to build", "bauen",
                                        "&lt;neut>", "see:", "Synonym:", "open",
                                        "offen",     "\n",   ", ",       "Geb\xE4ude"};
    QRandomGenerator generator(42);
    QByteArray bytes;
    while (bytes.size() < count)
        bytes += QByteArray(words[generator.bounded(12)]) + ' ';
    return bytes.left(count);
}

/// Text in which a match that begins one byte later is always one byte longer.
QByteArray growing(int count)
{
    QByteArray bytes;
    for (int length = 1; bytes.size() < count; ++length)
        bytes += text(300).right(length % 300) + static_cast<char>(length);
    return bytes.left(count);
}

/// Bytes whose counts are Fibonacci numbers: their Huffman tree is as deep as can be.
QByteArray fibonacciBytes()
{
    QByteArray bytes;
    int a = 1;
    int b = 1;
    for (char symbol = 'a'; bytes.size() + a < 32767; ++symbol) {
        bytes += QByteArray(a, symbol);
        const int next = a + b;
        a = b;
        b = next;
    }
    // Shuffled, so that there are few repetitions to take symbols away.
    QRandomGenerator generator(7);
    for (qsizetype i = bytes.size() - 1; i > 0; --i)
        std::swap(bytes[i], bytes[static_cast<qsizetype>(generator.bounded(quint32(i + 1)))]);
    return bytes;
}

void addBlocks()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<QByteArray>("block");
    const QByteArray far = text(400);
    const QList<QPair<const char*, QByteArray>> blocks = {
        {"empty", QByteArray()},
        {"only the end of a record", QByteArray(1, '\0')},
        {"one byte", "x"},
        {"two bytes", "xy"},
        {"one literal and its run", QByteArray(257, 'r')},
        {"two full matches of one byte", QByteArray(513, 'r')},
        {"run of the largest size", QByteArray(32767, 'a')},
        {"two bytes by turns", QByteArray("ab").repeated(5000)},
        {"a period just short of the longest match", text(255).repeated(128)},
        {"a period just beyond the longest match", text(257).repeated(127)},
        {"matches that each grow by a byte", growing(32000)},
        {"every byte once",
         [] {
             QByteArray all;
             for (int i = 0; i < 256; ++i)
                 all += static_cast<char>(i);
             return all;
         }()},
        {"random of the largest size", randomBytes(32767, 256)},
        {"random of four values", randomBytes(20000, 4)},
        {"text", text(8192)},
        {"text of the largest size", text(32767)},
        {"deepest code tree", fibonacciBytes()},
        {"match at the window's edge", far + randomBytes(26624 - 400, 256) + far},
        {"match beyond the window", far + randomBytes(26625 - 400, 256) + far},
        {"match at the edge of method 4", far + randomBytes(15872 - 400, 256) + far},
        {"match beyond method 4", far + randomBytes(15873 - 400, 256) + far},
    };
    for (int method = 1; method <= 4; ++method) {
        for (const auto& [name, block] : blocks)
            QTest::addRow("method %d: %s", method, name) << method << block;
    }
}

std::string packed(const QByteArray& block, int method)
{
    ArjEncoder encoder(method);
    return ArjMember::pack({block.constData(), static_cast<size_t>(block.size())}, encoder);
}

} // namespace

void TestArjEncoder::ownDecoderUnpacksIt_data()
{
    addBlocks();
}

void TestArjEncoder::ownDecoderUnpacksIt()
{
    QFETCH(int, method);
    QFETCH(QByteArray, block);
    const std::string member = packed(block, method);
    teskel::MemberBlock unpacked;
    const auto status = teskel::decodeMember(member.data(), member.size(), unpacked);
    QCOMPARE(QByteArray(teskel::memberStatusText(status)),
             QByteArray(teskel::memberStatusText(teskel::MemberStatus::Ok)));
    QCOMPARE(unpacked.size, static_cast<quint32>(block.size()));
    QVERIFY(QByteArray(unpacked.data.get(), block.size()) == block);
}

void TestArjEncoder::arjAndSevenZipUnpackIt_data()
{
    addBlocks();
}

void TestArjEncoder::arjAndSevenZipUnpackIt()
{
    QFETCH(int, method);
    QFETCH(QByteArray, block);
    const QString arj = QStandardPaths::findExecutable(u"arj"_s);
    const QString sevenZip = QStandardPaths::findExecutable(u"7zz"_s);
    QVERIFY2(!arj.isEmpty() && !sevenZip.isEmpty(), "needs the Debian packages arj and 7zip");
    const QTemporaryDir directory;
    const QByteArray member = QByteArray::fromStdString(packed(block, method));
    QVERIFY(
        teskel::test::writeFile(directory.filePath(u"a.arj"_s), teskel::test::archiveOf({member})));
    QCOMPARE(runArchiver(sevenZip, {u"t"_s, u"a.arj"_s}, directory.path()), 0);
    QCOMPARE(runArchiver(arj, {u"t"_s, u"-y"_s, u"a.arj"_s}, directory.path()), 0);
    QCOMPARE(runArchiver(arj, {u"e"_s, u"-y"_s, u"a.arj"_s}, directory.path()), 0);
    QFile unpacked(directory.filePath(u"0"_s));
    QVERIFY(unpacked.open(QIODevice::ReadOnly));
    QVERIFY(unpacked.readAll() == block);
}

void TestArjEncoder::sameBlockGivesSameBytesWhateverCameBefore()
{
    const std::string block = text(9000).toStdString();
    for (int method = 1; method <= 4; ++method) {
        ArjEncoder fresh(method);
        ArjEncoder used(method);
        used.pack(randomBytes(20000, 4).toStdString());
        used.pack(block.substr(100));
        QVERIFY(fresh.pack(block) == used.pack(block));
    }
}

void TestArjEncoder::emptyBlockPacksToNothing()
{
    for (int method = 1; method <= 4; ++method)
        QVERIFY(ArjEncoder(method).pack({}).empty());
}

void TestArjEncoder::betterMethodsPackTextSmaller()
{
    const std::string block = text(32767).toStdString();
    size_t previous = 0;
    for (int method = 1; method <= 4; ++method) {
        const size_t size = ArjEncoder(method).pack(block).size();
        QVERIFY(size >= previous);
        QVERIFY(size < block.size() / 2);
        previous = size;
    }
}

void TestArjEncoder::headerChecksumHolds()
{
    const std::string member = packed("house", 1);
    const auto byte = [&](size_t i) { return static_cast<quint8>(member[i]); };
    QCOMPARE(byte(0) | byte(1) << 8, 0xEA60);
    const size_t size = byte(2) | static_cast<size_t>(byte(3)) << 8;
    const quint32 stored = byte(4 + size) | quint32{byte(5 + size)} << 8 |
                           quint32{byte(6 + size)} << 16 | quint32{byte(7 + size)} << 24;
    QCOMPARE(stored,
             static_cast<quint32>(::crc32(0, reinterpret_cast<const Bytef*>(member.data() + 4),
                                          static_cast<uInt>(size))));
}

QTEST_GUILESS_MAIN(TestArjEncoder)
#include "test_arjencoder.moc"
