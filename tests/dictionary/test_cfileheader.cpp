// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "tests/support/arjmember.h"

#include <QTest>

using teskel::test::ArjMember;
using teskel::test::extendedHeader;

class TestCFileHeader : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryField();
    void leavesTheSourceAtThePackedBytes();
    void skipsExtendedHeaders();
    void fieldsThatWereNotReadAreZero();
    void refuses_data();
    void refuses();
    void namesAreCutToTheirBuffers();
    void namesWithoutTerminatorEndWithTheHeader();
    void namesBeyondTheHeaderAreEmpty();
    void unknownFixedFieldsAreSkipped();
};

void TestCFileHeader::readsEveryField()
{
    // id, size of the basic header, and its fields, each with a value of its own
    const QByteArray bytes = QByteArray::fromHex("60ea"
                                                 "2600"
                                                 "1e0b010210030405"
                                                 "78563412"
                                                 "04030201"
                                                 "11000000"
                                                 "efbeadde"
                                                 "0600"
                                                 "2100"
                                                 "0809") +
                             QByteArray("name\0cm\0", 8) +
                             QByteArray::fromHex("00000000"
                                                 "0000");
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    const CFileHeader header(&source);
    QVERIFY(header.isValid());
    QCOMPARE(header.headerId(), quint16{60000});
    QCOMPARE(header.basicHeaderSize(), quint16{38});
    QCOMPARE(header.firstHeaderSize(), quint8{30});
    QCOMPARE(header.archiverVersion(), quint8{11});
    QCOMPARE(header.minimumVersion(), quint8{1});
    QCOMPARE(header.hostOs(), quint8{2});
    QCOMPARE(header.flags(), quint8{0x10});
    QCOMPARE(header.method(), quint8{3});
    QCOMPARE(header.fileType(), quint8{4});
    QCOMPARE(header.reserved(), quint8{5});
    QCOMPARE(header.dateTime(), quint32{0x12345678});
    QCOMPARE(header.compressedSize(), quint32{0x01020304});
    QCOMPARE(header.uncompressedSize(), quint32{17});
    QCOMPARE(header.uncompressedCrc(), quint32{0xDEADBEEF});
    QCOMPARE(header.fileSpecPosition(), quint16{6});
    QCOMPARE(header.fileAccessMode(), quint16{0x21});
    QCOMPARE(header.hostData(), quint16{0x0908});
    QCOMPARE(header.fileName(), "name");
    QCOMPARE(header.comment(), "cm");
}

void TestCFileHeader::leavesTheSourceAtThePackedBytes()
{
    const QByteArray bytes = "??" + ArjMember().header() + "packed";
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    source.Seek(2, CBuffer::FromStart);
    QVERIFY(CFileHeader(&source).isValid());
    QCOMPARE(bytes.mid(source.Tell()), QByteArray("packed"));
}

void TestCFileHeader::skipsExtendedHeaders()
{
    ArjMember member;
    member.extendedHeaders = extendedHeader("one") + extendedHeader(QByteArray(300, 'x'));
    const QByteArray bytes = member.header() + "packed";
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    QVERIFY(CFileHeader(&source).isValid());
    QCOMPARE(bytes.mid(source.Tell()), QByteArray("packed"));
}

void TestCFileHeader::fieldsThatWereNotReadAreZero()
{
    const QByteArray endOfArchive = QByteArray::fromHex("60ea0000");
    CBuffer source;
    source.OpenMemory(endOfArchive.constData(), endOfArchive.size(), CBuffer::Read_Mode);
    const CFileHeader header(&source);
    QVERIFY(!header.isValid());
    QCOMPARE(header.basicHeaderSize(), quint16{0});
    QCOMPARE(header.firstHeaderSize(), quint8{0});
    QCOMPARE(header.archiverVersion(), quint8{0});
    QCOMPARE(header.minimumVersion(), quint8{0});
    QCOMPARE(header.hostOs(), quint8{0});
    QCOMPARE(header.flags(), quint8{0});
    QCOMPARE(header.method(), quint8{0});
    QCOMPARE(header.fileType(), quint8{0});
    QCOMPARE(header.reserved(), quint8{0});
    QCOMPARE(header.dateTime(), quint32{0});
    QCOMPARE(header.compressedSize(), quint32{0});
    QCOMPARE(header.uncompressedSize(), quint32{0});
    QCOMPARE(header.uncompressedCrc(), quint32{0});
    QCOMPARE(header.fileSpecPosition(), quint16{0});
    QCOMPARE(header.fileAccessMode(), quint16{0});
    QCOMPARE(header.hostData(), quint16{0});
    QCOMPARE(header.fileName(), "");
    QCOMPARE(header.comment(), "");
}

void TestCFileHeader::refuses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray whole = ArjMember().header();
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("one byte of the id") << whole.left(1);
    QTest::newRow("wrong id") << QByteArray("\x61\xEA") + whole.mid(2);
    QTest::newRow("the mark that ends an archive") << QByteArray::fromHex("60ea0000");
    QTest::newRow("end mark and more") << QByteArray::fromHex("60ea0000") + whole.mid(4);
    QTest::newRow("end mark followed by what ends a header")
        << QByteArray::fromHex("60ea0000000000000000");
    QTest::newRow("basic header cut short") << whole.left(20);
    ArjMember claims;
    claims.basicHeaderSize = 0xFFFF;
    QTest::newRow("basic header larger than the data") << claims.header();
    QTest::newRow("no end of the extended headers") << whole.left(whole.size() - 2);
    QTest::newRow("half an end of the extended headers") << whole.left(whole.size() - 1);
    ArjMember endless;
    endless.extendedHeaders = QByteArray::fromHex("ffff");
    QTest::newRow("extended header larger than the data") << endless.header();
}

void TestCFileHeader::refuses()
{
    QFETCH(QByteArray, bytes);
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    QVERIFY(!CFileHeader(&source).isValid());
}

void TestCFileHeader::namesAreCutToTheirBuffers()
{
    ArjMember member;
    member.fileName = QByteArray(600, 'n');
    member.comment = QByteArray(3000, 'c');
    const QByteArray bytes = member.header();
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    const CFileHeader header(&source);
    QVERIFY(header.isValid());
    QCOMPARE(QByteArray(header.fileName()), QByteArray(511, 'n'));
    QCOMPARE(QByteArray(header.comment()), QByteArray(2047, 'c'));
}

void TestCFileHeader::namesWithoutTerminatorEndWithTheHeader()
{
    ArjMember member;
    member.fileName = "endless";
    member.hasTerminators = false;
    const QByteArray bytes = member.header();
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    const CFileHeader header(&source);
    QVERIFY(header.isValid());
    QCOMPARE(header.fileName(), "endless");
    QCOMPARE(header.comment(), "");
}

void TestCFileHeader::namesBeyondTheHeaderAreEmpty()
{
    QByteArray bytes = ArjMember().header();
    bytes[4] = '\xFF'; // size of the first header: past the end of the basic header
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    const CFileHeader header(&source);
    QVERIFY(header.isValid());
    QCOMPARE(header.fileName(), "");
    QCOMPARE(header.comment(), "");
}

void TestCFileHeader::unknownFixedFieldsAreSkipped()
{
    ArjMember member;
    member.firstHeaderSize = 46;
    member.fileName = "later";
    const QByteArray bytes = member.header();
    CBuffer source;
    source.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    QCOMPARE(CFileHeader(&source).fileName(), "later");
}

QTEST_GUILESS_MAIN(TestCFileHeader)
#include "test_cfileheader.moc"
