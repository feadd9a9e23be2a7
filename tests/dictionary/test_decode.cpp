// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"
#include "tests/dictionary/staticblock.h"
#include "tests/support/arjmember.h"
#include "tests/support/warningcapture.h"

#include <QRegularExpression>
#include <QTest>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

using namespace teskel;
using namespace teskel::test;

namespace
{
constexpr char textBytes[] = "Haus\0<n>house\0Hausboot\0<n>houseboat\0"
                             "Haus\0<n>house\0Hausboot\0<n>houseboat\0";
const QByteArray text(textBytes, sizeof textBytes - 1);

// Every literal has the eight-bit code of its own value; no matches.
QByteArray eightBitLiterals(const QByteArray& bytes)
{
    BitWriter bits;
    bits.put(static_cast<quint32>(bytes.size()), 16);
    putSingle(bits, 10, 5); // every length is 8 ...
    bits.put(256, 9);       // ... of the 256 literals
    putSingle(bits, 0, 5);  // positions
    for (const char byte : bytes)
        bits.put(static_cast<quint8>(byte), 8);
    return bits.bytes();
}

ArjMember headerFor(quint8 method, const QByteArray& packed, int size)
{
    ArjMember member;
    member.method = method;
    member.compressedSize = static_cast<quint32>(packed.size());
    member.uncompressedSize = static_cast<quint32>(size);
    return member;
}

std::unique_ptr<void, FreeDeleter> unpack(QByteArray member)
{
    return std::unique_ptr<void, FreeDeleter>(DecompressBuffer(member.data(), member.size()));
}

QByteArray unpackToBytes(const QByteArray& member, qsizetype size)
{
    const auto block = unpack(member);
    return block ? QByteArray(static_cast<const char*>(block.get()), size) : QByteArray("(null)");
}
} // namespace

class TestDecode : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void unpacksLiterals();
    void unpacksMatchesThatOverlapThemselves();
    void severalBlocks();
    void workedExamplesOfTheFormatsDescription();
    void methodsUnpackToIdenticalBytes();
    void blockWithoutTheIdGivesNull();
    void archiveEndMarkGivesNull();
    void storedMemberGivesNull();
    void storedMemberWithChecksumZeroIsEmpty();
    void unknownMethodsGiveNull_data();
    void unknownMethodsGiveNull();
    void wrongChecksumGivesNull();
    void headerChecksumsAreNotLookedAt();
    void extendedHeadersAreSkipped();
    void dataThatRunsOutIsFollowedByZeroBits();
    void dataThatRunsOutUsuallyFailsTheChecksum();
    void largestSize();
    void callersBufferReceivesTheBytes();
    void callersBufferThatIsTooSmallIsNotOverrun();
    void callersLargerBufferKeepsItsRest();
    void spareBytesAreZero();
    void statusTellsWhy();
    void compressedSizeCountsDownToZero();
    void decoderCanBeUsedAgain();
    void outputInReadModeIsNotWritten_data();
    void outputInReadModeIsNotWritten();
    void inputInWriteModeIsRead();
    void inputOfItsOwnMemoryMayBeShorterThanClaimed();
    void negativeSizesAreNoMember();
};

void TestDecode::unpacksLiterals()
{
    QByteArray every;
    for (int byte = 0; byte < 256; ++byte)
        every += static_cast<char>(byte);
    for (quint8 method = 1; method <= 3; ++method)
        QCOMPARE(unpackToBytes(makeMember(method, eightBitLiterals(every), every), 256), every);
    QCOMPARE(unpackToBytes(literalMember(every), 256), every);
}

void TestDecode::unpacksMatchesThatOverlapThemselves()
{
    for (int distance = 1; distance <= 20; ++distance) {
        for (const int length : {3, 7, 8, 9, 16, 255, 256}) {
            const QByteArray start = QByteArray("abcdefghijklmnopqrst").left(distance);
            QByteArray expected = start;
            for (int i = 0; i < length; ++i)
                expected += expected.at(i);
            StaticBlock block(CodeLengths(2, 8) + CodeLengths(508, 9),
                              CodeLengths(15, 4) + CodeLengths(2, 5));
            for (const char byte : start)
                block.literal(static_cast<quint8>(byte));
            block.match(length, distance);
            BitWriter bits;
            block.writeTo(bits);
            QCOMPARE(unpackToBytes(makeMember(1, bits.bytes(), expected), expected.size()),
                     expected);
        }
    }
}

void TestDecode::severalBlocks()
{
    BitWriter bits;
    QRandomGenerator generator(5);
    QByteArray expected;
    for (int i = 0; i < 4; ++i) {
        StaticBlock block(randomLengths(generator, 510, 510), randomLengths(generator, 17, 17));
        for (const char byte : text) {
            block.literal(static_cast<quint8>(byte));
            expected += byte;
        }
        block.match(10, 5);
        for (int copied = 0; copied < 10; ++copied)
            expected += expected.at(expected.size() - 5);
        block.writeTo(bits);
    }
    QCOMPARE(unpackToBytes(makeMember(2, bits.bytes(), expected), expected.size()), expected);
}

// The examples at the end of docs/lexicon-format.md.
void TestDecode::workedExamplesOfTheFormatsDescription()
{
    const QByteArray expected = "aaaab";
    BitWriter fast;
    fast.put("0").put("01100001");
    fast.put("10").put("0").put("0").put("000000000");
    fast.put("0").put("01100010");
    QCOMPARE(fast.bytes(), QByteArray::fromHex("30c000c4"));
    QCOMPARE(unpackToBytes(makeMember(4, fast.bytes(), expected), 5), expected);

    BitWriter block;
    block.put("0000000000000011");
    block.put("00101").put("000").put("000").put("001").put("00").put("010").put("010");
    block.put("100000001").put("0").put("001001101").put("10").put("11");
    block.put("0").put("010001001").put("11");
    block.put("00000").put("00000");
    block.put("0").put("11").put("10");
    for (quint8 method = 1; method <= 3; ++method)
        QCOMPARE(unpackToBytes(makeMember(method, block.bytes(), expected), 5), expected);
}

void TestDecode::methodsUnpackToIdenticalBytes()
{
    const QByteArray expected = unpackToBytes(literalMember(text), text.size());
    QCOMPARE(expected, text);
    for (quint8 method = 1; method <= 3; ++method) {
        QCOMPARE(unpackToBytes(makeMember(method, eightBitLiterals(text), text), text.size()),
                 expected);
    }
}

void TestDecode::blockWithoutTheIdGivesNull()
{
    QByteArray member = literalMember(text);
    member[1] = '\xEB';
    QVERIFY(!unpack(member));
    QVERIFY(!unpack(QByteArray()));
    QVERIFY(!unpack(QByteArray(200, '\0')));
    QVERIFY(!DecompressBuffer(nullptr, 0));
}

void TestDecode::archiveEndMarkGivesNull()
{
    QVERIFY(!unpack(QByteArray::fromHex("60ea0000") + QByteArray(100, '\0')));
}

void TestDecode::storedMemberGivesNull()
{
    QVERIFY(!unpack(makeMember(0, text, text)));
}

void TestDecode::storedMemberWithChecksumZeroIsEmpty()
{
    QVERIFY(unpack(makeMember(0, QByteArray(), QByteArray())));
    // The size is believed, but nothing was written.
    ArjMember claims = headerFor(0, QByteArray(), 50);
    QCOMPARE(unpackToBytes(claims.header(), 50), QByteArray(50, '\0'));
}

void TestDecode::unknownMethodsGiveNull_data()
{
    QTest::addColumn<int>("method");
    for (const int method : {5, 8, 9, 255})
        QTest::addRow("method %d", method) << method;
}

void TestDecode::unknownMethodsGiveNull()
{
    QFETCH(int, method);
    QVERIFY(!unpack(makeMember(static_cast<quint8>(method), packLiterals(text), text)));
}

void TestDecode::wrongChecksumGivesNull()
{
    const QByteArray packed = packLiterals(text);
    ArjMember member = headerFor(4, packed, static_cast<int>(text.size()));
    member.crc = 0x12345678;
    QVERIFY(!unpack(member.header() + packed));
}

void TestDecode::headerChecksumsAreNotLookedAt()
{
    QByteArray member = literalMember(text);
    const int basicSize = static_cast<quint8>(member.at(2));
    member.replace(4 + basicSize, 4, QByteArray("\xDE\xAD\xBE\xEF"));
    QCOMPARE(unpackToBytes(member, text.size()), text);
}

void TestDecode::extendedHeadersAreSkipped()
{
    const QByteArray plain = literalMember(text);
    const int at = 4 + static_cast<quint8>(plain.at(2)) + 4;
    QByteArray member = plain;
    member.insert(at, extendedHeader("more") + extendedHeader(QByteArray(1000, '\xEA')));
    QCOMPARE(unpackToBytes(member, text.size()), text);
}

// Zero bits are literals of 0 in method 4; here the bytes that follow the member are not.
void TestDecode::dataThatRunsOutIsFollowedByZeroBits()
{
    const QByteArray packed = packLiterals("ab");
    const QByteArray expected = "ab" + QByteArray(100, '\0');
    const QByteArray whole = makeMember(4, packed, expected);
    QCOMPARE(unpackToBytes(whole + QByteArray(300, '\xFF'), expected.size()), expected);
}

void TestDecode::dataThatRunsOutUsuallyFailsTheChecksum()
{
    const QByteArray original = text.chopped(1); // no zeros at the end
    for (quint8 method = 1; method <= 4; ++method) {
        const QByteArray packed = method == 4 ? packLiterals(original) : eightBitLiterals(original);
        for (qsizetype cut = 0; cut < packed.size(); ++cut)
            QVERIFY(!unpack(makeMember(method, packed.left(cut), original)));
    }
}

void TestDecode::largestSize()
{
    const QByteArray largest = text.repeated(1000).left(32767);
    QCOMPARE(unpackToBytes(literalMember(largest), largest.size()), largest);
    const QByteArray tooLarge = text.repeated(1000).left(32768);
    QVERIFY(!unpack(literalMember(tooLarge)));
    QByteArray member = literalMember(tooLarge);
    QByteArray target(tooLarge.size(), '?');
    QVERIFY(!DecompressBuffer(target.data(), target.size(), member.data(), member.size()));
    QCOMPARE(target, QByteArray(tooLarge.size(), '?'));
}

void TestDecode::callersBufferReceivesTheBytes()
{
    QByteArray member = literalMember(text);
    QByteArray target(text.size(), '?');
    QVERIFY(DecompressBuffer(target.data(), target.size(), member.data(), member.size()));
    QCOMPARE(target, text);
    member[0] = 'x';
    QVERIFY(!DecompressBuffer(target.data(), target.size(), member.data(), member.size()));
}

void TestDecode::callersBufferThatIsTooSmallIsNotOverrun()
{
    QByteArray member = literalMember(text);
    QByteArray target(text.size(), '?');
    QVERIFY(!DecompressBuffer(target.data(), 10, member.data(), member.size()));
    QCOMPARE(target, text.left(10) + QByteArray(text.size() - 10, '?'));
    QVERIFY(!DecompressBuffer(nullptr, 0, member.data(), member.size()));
}

void TestDecode::callersLargerBufferKeepsItsRest()
{
    QByteArray member = literalMember(text);
    QByteArray target(text.size() + 20, '?');
    QVERIFY(DecompressBuffer(target.data(), target.size(), member.data(), member.size()));
    QCOMPARE(target, text + QByteArray(20, '?'));
}

void TestDecode::spareBytesAreZero()
{
    const QByteArray member = literalMember(text);
    MemberBlock block;
    QCOMPARE(decodeMember(member.constData(), static_cast<std::size_t>(member.size()), block, 5),
             MemberStatus::Ok);
    QCOMPARE(block.size, static_cast<quint32>(text.size()));
    QCOMPARE(QByteArray(block.data.get(), text.size() + 5), text + QByteArray(5, '\0'));
}

void TestDecode::statusTellsWhy()
{
    const auto statusOf = [](const QByteArray& member) {
        MemberBlock block;
        const MemberStatus status =
            decodeMember(member.constData(), static_cast<std::size_t>(member.size()), block);
        return (block.data != nullptr) == (status == MemberStatus::Ok) ? status
                                                                       : MemberStatus::OutOfMemory;
    };
    QCOMPARE(statusOf(literalMember(text)), MemberStatus::Ok);
    QCOMPARE(statusOf("no member"), MemberStatus::BadHeader);
    QCOMPARE(statusOf(headerFor(4, QByteArray(), 40000).header()), MemberStatus::TooLarge);
    QCOMPARE(statusOf(makeMember(0, text, text)), MemberStatus::UnknownMethod);
    QCOMPARE(statusOf(makeMember(1, QByteArray(40, '\xFF'), text)), MemberStatus::BadCodes);
    QCOMPARE(statusOf(makeMember(4, QByteArray(40, '\0'), text)), MemberStatus::BadChecksum);
    for (int status = 0; status <= static_cast<int>(MemberStatus::BadChecksum); ++status)
        QVERIFY(qstrlen(memberStatusText(static_cast<MemberStatus>(status))) > 10);
}

void TestDecode::compressedSizeCountsDownToZero()
{
    for (const QByteArray& member :
         {literalMember(text), makeMember(1, eightBitLiterals(text), text)}) {
        CBuffer input;
        input.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
        CFileHeader header(&input);
        QVERIFY(header.compressedSize() > 10);
        QByteArray target(text.size(), '?');
        CBuffer output;
        output.OpenMemory(target.data(), target.size(), CBuffer::Write_Mode);
        QVERIFY(CDecoder().Decompress(&header, &input, &output));
        QCOMPARE(header.compressedSize(), 0U);
        QCOMPARE(input.Tell(), static_cast<long>(member.size()));
        QCOMPARE(output.Tell(), static_cast<long>(text.size()));
    }
}

void TestDecode::decoderCanBeUsedAgain()
{
    const QByteArray huffman = makeMember(1, eightBitLiterals(text), text);
    const QByteArray badCodes = makeMember(1, QByteArray(40, '\xFF'), text);
    const QByteArray fastest = literalMember(text);
    const QByteArray tooLarge = headerFor(4, QByteArray(), 40000).header();
    const QByteArray stored = makeMember(0, text, text);
    CDecoder decoder;
    for (const QByteArray& bad : {badCodes, tooLarge, stored}) {
        for (const QByteArray& member : {huffman, bad, fastest, bad, huffman, bad, bad}) {
            CBuffer input;
            input.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
            CFileHeader header(&input);
            QByteArray target(text.size(), '?');
            CBuffer output;
            output.OpenMemory(target.data(), target.size(), CBuffer::Write_Mode);
            output.Seek(7, CBuffer::FromStart); // decoding begins at the start all the same
            QCOMPARE(decoder.Decompress(&header, &input, &output), member != bad);
            QCOMPARE(decoder.status() == MemberStatus::Ok, member != bad);
            QVERIFY((target == text) == (member != bad));
        }
    }
}

void TestDecode::outputInReadModeIsNotWritten_data()
{
    QTest::addColumn<QByteArray>("member");
    QTest::addColumn<bool>("isOk");
    QTest::newRow("method 1") << makeMember(1, eightBitLiterals(text), text) << false;
    QTest::newRow("method 4") << literalMember(text) << false;
    // The checksum of nothing holds: that is what was written.
    QTest::newRow("checksum 0")
        << headerFor(4, packLiterals(text), static_cast<int>(text.size())).header() +
               packLiterals(text)
        << true;
}

void TestDecode::outputInReadModeIsNotWritten()
{
    QFETCH(QByteArray, member);
    CBuffer input;
    input.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
    CFileHeader header(&input);
    QVERIFY(header.isValid());
    QByteArray target(text.size(), '?');
    CBuffer output;
    output.OpenMemory(target.data(), target.size(), CBuffer::Read_Mode);
    output.Seek(7, CBuffer::FromStart);
    QTEST(CDecoder().Decompress(&header, &input, &output), "isOk");
    QCOMPARE(target, QByteArray(text.size(), '?'));
    QCOMPARE(output.Tell(), 0L);
}

// Packed bytes are fetched one by one, which both modes allow.
void TestDecode::inputInWriteModeIsRead()
{
    for (QByteArray member : {makeMember(1, eightBitLiterals(text), text), literalMember(text)}) {
        CBuffer source;
        source.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
        CFileHeader header(&source);
        CBuffer input;
        input.OpenMemory(member.data() + source.Tell(), member.size() - source.Tell(),
                         CBuffer::Write_Mode);
        QByteArray target(text.size(), '?');
        CBuffer output;
        output.OpenMemory(target.data(), target.size(), CBuffer::Write_Mode);
        QVERIFY(CDecoder().Decompress(&header, &input, &output));
        QCOMPARE(target, text);
        QCOMPARE(input.Tell(), input.Size());
    }
}

void TestDecode::inputOfItsOwnMemoryMayBeShorterThanClaimed()
{
    for (const quint8 method : {quint8{1}, quint8{4}}) {
        const QByteArray packed = method == 4 ? packLiterals(text) : eightBitLiterals(text);
        const QByteArray member = makeMember(method, packed, text).chopped(20);
        CBuffer source;
        source.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
        CFileHeader header(&source);
        CBuffer input;
        const long size = source.Size() - source.Tell();
        QVERIFY(input.Open(&source, size));
        QByteArray target(text.size(), '?');
        CBuffer output;
        output.OpenMemory(target.data(), target.size(), CBuffer::Write_Mode);
        const WarningCapture warnings; // of matches that the missing bytes make up
        QVERIFY(!CDecoder().Decompress(&header, &input, &output));
        QCOMPARE(target.left(30), text.left(30));
        QCOMPARE(input.Size(), size);
        QCOMPARE(input.Tell(), size);
    }
}

void TestDecode::negativeSizesAreNoMember()
{
    QByteArray member = literalMember(text);
    QByteArray target(text.size(), '?');
    for (const long size : {-1L, std::numeric_limits<long>::min()}) {
        const std::unique_ptr<void, FreeDeleter> block(DecompressBuffer(member.data(), size));
        QVERIFY(!block);
        QVERIFY(!DecompressBuffer(target.data(), target.size(), member.data(), size));
        QVERIFY(!DecompressBuffer(target.data(), size, member.data(), member.size()));
    }
    QCOMPARE(target, QByteArray(text.size(), '?'));
}

QTEST_GUILESS_MAIN(TestDecode)
#include "test_decode.moc"
