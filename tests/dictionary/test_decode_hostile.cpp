// SPDX-License-Identifier: MIT
// Streams that no packer writes, built bit by bit: each must end soon and within its output.
#include "dictionary/unpacking/decode.h"
#include "tests/dictionary/staticblock.h"
#include "tests/support/arjmember.h"
#include "tests/support/warningcapture.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

using namespace teskel;
using namespace teskel::test;

namespace
{
constexpr int guardSize = 64;

struct Outcome {
    MemberStatus status = MemberStatus::Ok;
    QByteArray output;
    bool isGuardWhole = false;
    QStringList warnings;
};

// Decodes into a buffer with a guard behind it, which no write may reach.
Outcome decode(int method, const QByteArray& packed, int size)
{
    ArjMember member;
    member.method = static_cast<quint8>(method);
    member.compressedSize = static_cast<quint32>(packed.size());
    member.uncompressedSize = static_cast<quint32>(size);
    const QByteArray bytes = member.header() + packed;
    CBuffer input;
    input.OpenMemory(bytes.constData(), bytes.size(), CBuffer::Read_Mode);
    CFileHeader header(&input);
    QByteArray target(size + guardSize, '?');
    CBuffer output;
    output.OpenMemory(target.data(), size, CBuffer::Write_Mode);
    CDecoder decoder;
    const WarningCapture warnings;
    decoder.Decompress(&header, &input, &output);
    return {decoder.status(), target.left(output.Tell()),
            target.right(guardSize) == QByteArray(guardSize, '?'), warnings.messages()};
}

// A block's start whose character code has the literal 'a' alone, in no bits.
BitWriter blockOf(quint32 codes)
{
    BitWriter bits;
    bits.put(codes, 16);
    putSingle(bits, 0, 5);
    putSingle(bits, 'a', 9);
    putSingle(bits, 0, 5);
    return bits;
}

const CodeLengths fullCharacters = CodeLengths(2, 8) + CodeLengths(508, 9);
const CodeLengths fullPositions = CodeLengths(15, 4) + CodeLengths(2, 5);
} // namespace

class TestDecodeHostile : public QObject
{
    Q_OBJECT

private slots:
    void damagedTables_data();
    void damagedTables();
    void runOfZeroLengthsMayPassTheCount_data();
    void runOfZeroLengthsMayPassTheCount();
    void blockOfNoCodesHas65536();
    void emptyBlocksForEverEndWithTheOutput();
    void codeOfNoBitsFillsTheOutput();
    void codeWithoutSymbolsFailsWhenUsed_data();
    void codeWithoutSymbolsFailsWhenUsed();
    void unusedPositionCodeWithoutSymbolsIsHarmless();
    void lastMatchIsCutAtTheEndOfTheOutput_data();
    void lastMatchIsCutAtTheEndOfTheOutput();
    void matchNearTheEndStaysWithinTheOutput_data();
    void matchNearTheEndStaysWithinTheOutput();
    void matchBeforeTheStartWrapsAndWarns_data();
    void matchBeforeTheStartWrapsAndWarns();
    void wrappedMatchCanReadWhatWasWritten();
    void headerThatClaimsMuchTakesNoMemory();
    void headerThatClaimsMoreInputThanThereIs();
};

void TestDecodeHostile::damagedTables_data()
{
    QTest::addColumn<QByteArray>("packed");
    const auto add = [](const char* name, const BitWriter& bits) {
        QTest::newRow(name) << bits.bytes() + QByteArray(600, '\x55');
    };
    {
        BitWriter bits;
        bits.put(1, 16).put(20, 5);
        add("more lengths of lengths than the alphabet has", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16).put(1, 5).put("111").put("1111111111").put("0");
        add("length of 17 bits", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16).put(1, 5).put("111").put(0xFFFFFFFF, 32);
        add("length that never ends", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSmallTable(bits, {1, 1, 1}, 3);
        add("length code oversubscribed", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSmallTable(bits, CodeLengths(19, 1), 3);
        add("length code oversubscribed beyond 16 bits of sum", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSmallTable(bits, {1, 1, 1, 1}, 3);
        add("length code twice as large as the code space", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSmallTable(bits, {2, 2, 2}, 3);
        add("length code incomplete", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16).put(3, 5).put(0, 9).put(0, 2); // three lengths of 0
        bits.put(5, 9);
        add("length code without symbols, used", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 31, 5);
        bits.put(5, 9);
        add("length code of a symbol outside the alphabet", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 10, 5);
        bits.put(511, 9);
        add("more character lengths than characters", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 2, 5); // every code is a run of at least 20 zeros
        bits.put(510, 9);
        for (int i = 0; i < 2; ++i)
            bits.put(511, 9);
        add("run of zero lengths past the alphabet", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSmallTable(bits, {0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 1}, 3); // run: 0, eight bits: 1
        bits.put(510, 9);
        for (int i = 0; i < 256; ++i)
            bits.put("1");
        for (int i = 0; i < 14; ++i)
            bits.put("0").put(15, 4); // 18 zeros
        bits.put("0").put(0, 4);      // 3 more, where 2 are left
        putSingle(bits, 0, 5);
        add("run of zero lengths one past the alphabet", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 9, 5); // 256 characters of 7 bits
        bits.put(256, 9);
        add("character code oversubscribed", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 10, 5); // 255 characters of 8 bits
        bits.put(255, 9);
        add("character code incomplete", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 'a', 9);
        bits.put(18, 5);
        add("more position lengths than positions", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 'a', 9);
        putSmallTable(bits, {1, 2, 2, 2}, -1);
        add("position code oversubscribed", bits);
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 'a', 9);
        putSmallTable(bits, {1}, -1);
        add("position code incomplete", bits);
    }
}

void TestDecodeHostile::damagedTables()
{
    QFETCH(QByteArray, packed);
    for (int method = 1; method <= 3; ++method) {
        const Outcome outcome = decode(method, packed, 500);
        QCOMPARE(outcome.status, MemberStatus::BadCodes);
        QCOMPARE(outcome.output, QByteArray());
        QVERIFY(outcome.isGuardWhole);
    }
}

void TestDecodeHostile::runOfZeroLengthsMayPassTheCount_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("zeros");
    QTest::newRow("by none") << 258 << 20;
    QTest::newRow("by one") << 257 << 20;
    QTest::newRow("to the alphabet's end") << 239 << 272;
}

// The lengths beyond the count are zeros anyway.
void TestDecodeHostile::runOfZeroLengthsMayPassTheCount()
{
    QFETCH(int, count);
    QFETCH(int, zeros);
    BitWriter bits;
    bits.put(4, 16);
    putSmallTable(bits, {0, 0, 1, 2, 2}, 3); // run: 0, one bit: 10, two bits: 11
    bits.put(static_cast<quint32>(count), 9);
    for (int i = 0; i < 4; ++i)
        bits.put("11");
    bits.put("0").put(214, 9); // 234 zeros: up to 238
    bits.put("0").put(static_cast<quint32>(zeros - 20), 9);
    putSingle(bits, 0, 5); // positions
    for (const char* code : {"11", "10", "01", "00"})
        bits.put(code);
    const Outcome outcome = decode(1, bits.bytes(), 4);
    QCOMPARE(outcome.output, QByteArray("\3\2\1\0", 4));
    QCOMPARE(outcome.status, MemberStatus::BadChecksum); // the header's is 0
}

void TestDecodeHostile::blockOfNoCodesHas65536()
{
    const Outcome outcome = decode(1, blockOf(0).bytes(), 32767);
    QCOMPARE(outcome.output, QByteArray(32767, 'a'));
    QVERIFY(outcome.isGuardWhole);
}

// After the end all is zeros: blocks of 65,536 codes of the literal 0, in no bits at all.
void TestDecodeHostile::emptyBlocksForEverEndWithTheOutput()
{
    const Outcome outcome = decode(1, QByteArray(), 32767);
    QCOMPARE(outcome.status, MemberStatus::BadChecksum);
    QCOMPARE(outcome.output, QByteArray(32767, '\0'));
    QVERIFY(outcome.isGuardWhole);
}

void TestDecodeHostile::codeOfNoBitsFillsTheOutput()
{
    const Outcome outcome = decode(2, blockOf(0xFFFF).bytes(), 30000);
    QCOMPARE(outcome.output, QByteArray(30000, 'a'));
    QVERIFY(outcome.isGuardWhole);
}

void TestDecodeHostile::codeWithoutSymbolsFailsWhenUsed_data()
{
    QTest::addColumn<QByteArray>("packed");
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 510, 9);
        putSingle(bits, 0, 5);
        QTest::newRow("character outside the alphabet") << bits.bytes();
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5); // each length, in no bits, is one zero
        bits.put(510, 9);
        putSingle(bits, 0, 5);
        QTest::newRow("no character has a code") << bits.bytes();
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 256, 9); // a match of 3
        putSingle(bits, 17, 5);
        QTest::newRow("position outside the alphabet") << bits.bytes();
    }
    {
        BitWriter bits;
        bits.put(1, 16);
        putSingle(bits, 0, 5);
        putSingle(bits, 256, 9);
        bits.put(1, 5).put(0, 3);
        QTest::newRow("no position has a code") << bits.bytes();
    }
}

void TestDecodeHostile::codeWithoutSymbolsFailsWhenUsed()
{
    QFETCH(QByteArray, packed);
    const Outcome outcome = decode(1, packed, 500);
    QCOMPARE(outcome.status, MemberStatus::BadCodes);
    QCOMPARE(outcome.output, QByteArray());
    QVERIFY(outcome.isGuardWhole);
}

void TestDecodeHostile::unusedPositionCodeWithoutSymbolsIsHarmless()
{
    BitWriter bits;
    bits.put(5, 16);
    putSingle(bits, 0, 5);
    putSingle(bits, 'a', 9);
    bits.put(1, 5).put(0, 3);
    const Outcome outcome = decode(1, bits.bytes(), 5);
    QCOMPARE(outcome.output, QByteArray("aaaaa"));
    QCOMPARE(outcome.status, MemberStatus::BadChecksum); // the header's is 0
}

void TestDecodeHostile::lastMatchIsCutAtTheEndOfTheOutput_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("size");
    for (const int distance : {1, 2, 7, 8, 20}) {
        for (const int size : {21, 22, 27, 28, 29, 40, 275})
            QTest::addRow("distance %d, %d bytes", distance, size) << distance << size;
    }
}

void TestDecodeHostile::lastMatchIsCutAtTheEndOfTheOutput()
{
    QFETCH(int, distance);
    QFETCH(int, size);
    const QByteArray start = "abcdefghijklmnopqrst";
    QByteArray expected = start;
    while (expected.size() < size)
        expected += expected.at(expected.size() - distance);

    StaticBlock block(fullCharacters, fullPositions);
    for (const char byte : start)
        block.literal(static_cast<quint8>(byte));
    block.match(256, distance);
    BitWriter packed;
    block.writeTo(packed);
    const Outcome huffman = decode(1, packed.bytes(), size);
    QCOMPARE(huffman.output, expected);
    QVERIFY(huffman.isGuardWhole);

    BitWriter fast;
    for (const char byte : start)
        fast.put(0, 1).put(static_cast<quint8>(byte), 8);
    fast.put("1111111").put(0x7F, 7);                          // length 256
    fast.put(0, 1).put(static_cast<quint32>(distance - 1), 9); // position
    const Outcome fastest = decode(4, fast.bytes(), size);
    QCOMPARE(fastest.output, expected);
    QVERIFY(fastest.isGuardWhole);
}

void TestDecodeHostile::matchNearTheEndStaysWithinTheOutput_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("room");
    for (const int length : {3, 7, 8, 9, 15, 16, 17, 24, 25}) {
        for (int room = 0; room <= 17; ++room)
            QTest::addRow("match of %d, %d bytes left", length, room) << length << room;
    }
}

// A match may be copied in larger pieces than itself, but not past the end.
void TestDecodeHostile::matchNearTheEndStaysWithinTheOutput()
{
    QFETCH(int, length);
    QFETCH(int, room);
    QByteArray expected = "abcdefghijklmnopqrst";
    StaticBlock block(fullCharacters, fullPositions);
    for (const char byte : expected)
        block.literal(static_cast<quint8>(byte));
    block.match(length, 20);
    for (int i = 0; i < length; ++i)
        expected += expected.at(i);
    for (int i = 0; i < room; ++i)
        block.literal('z');
    expected += QByteArray(room, 'z');
    BitWriter packed;
    block.writeTo(packed);
    const Outcome outcome = decode(1, packed.bytes(), static_cast<int>(expected.size()));
    QCOMPARE(outcome.output, expected);
    QVERIFY(outcome.isGuardWhole);
}

void TestDecodeHostile::matchBeforeTheStartWrapsAndWarns_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("warning");
    QTest::newRow("method 1") << 1 << u"ASSERT: \"FALSE\" in decode.cpp (335)"_s;
    QTest::newRow("method 4") << 4 << u"ASSERT: \"FALSE\" in decode.cpp (469)"_s;
}

void TestDecodeHostile::matchBeforeTheStartWrapsAndWarns()
{
    QFETCH(int, method);
    BitWriter bits;
    if (method == 4) {
        bits.put(0, 1).put('x', 8);
        bits.put("10").put(0, 1); // length 3
        bits.put(0, 1).put(1, 9); // two back, where one byte stands
        bits.put(0, 1).put('y', 8);
    } else {
        StaticBlock block(fullCharacters, fullPositions);
        block.literal('x');
        block.match(3, 2);
        block.literal('y');
        block.writeTo(bits);
    }
    const Outcome outcome = decode(method, bits.bytes(), 5);
    QTEST(outcome.warnings.join(QLatin1Char('|')), "warning");
    // Decoding goes on; what was never written reads as 0.
    QCOMPARE(outcome.output, QByteArray("x\0\0\0y", 5));
    QVERIFY(outcome.isGuardWhole);
}

// 32,000 is added to the index, which may then lie in the output, or still before it.
void TestDecodeHostile::wrappedMatchCanReadWhatWasWritten()
{
    StaticBlock block(fullCharacters, fullPositions);
    for (const char byte : QByteArray("abcdef"))
        block.literal(static_cast<quint8>(byte));
    block.match(3, 32004); // 6 - 32004 + 32000 = 2
    block.match(5, 32011); // 9 - 32011 + 32000 = -2
    block.match(3, 65536);
    BitWriter bits;
    block.writeTo(bits);
    const Outcome outcome = decode(1, bits.bytes(), 17);
    QCOMPARE(outcome.output, QByteArray("abcdefcde\0\0abc\0\0\0", 17));
    QCOMPARE(outcome.warnings.size(), 3);
}

void TestDecodeHostile::headerThatClaimsMuchTakesNoMemory()
{
    ArjMember member;
    member.method = 4;
    member.compressedSize = 0xFFFFFFFF;
    member.uncompressedSize = 0xFFFFFFFF;
    QByteArray bytes = member.header();
    MemberBlock block;
    QCOMPARE(decodeMember(bytes.constData(), static_cast<std::size_t>(bytes.size()), block),
             MemberStatus::TooLarge);
    QVERIFY(!DecompressBuffer(bytes.data(), bytes.size()));
    // Were the memory asked for, the answer would be that there is none.
    constexpr std::size_t moreThanThereIs = std::numeric_limits<std::size_t>::max() / 4;
    QCOMPARE(decodeMember(bytes.constData(), static_cast<std::size_t>(bytes.size()), block,
                          moreThanThereIs),
             MemberStatus::TooLarge);
}

void TestDecodeHostile::headerThatClaimsMoreInputThanThereIs()
{
    ArjMember member;
    member.compressedSize = 0xFFFFFFFF;
    member.uncompressedSize = 32767;
    for (quint8 method = 1; method <= 4; ++method) {
        member.method = method;
        const QByteArray bytes = member.header() + "abc";
        MemberBlock block;
        const WarningCapture warnings;
        QVERIFY(decodeMember(bytes.constData(), static_cast<std::size_t>(bytes.size()), block) !=
                MemberStatus::Ok);
    }
}

QTEST_GUILESS_MAIN(TestDecodeHostile)
#include "test_decode_hostile.moc"
