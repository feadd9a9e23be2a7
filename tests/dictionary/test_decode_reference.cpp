// SPDX-License-Identifier: MIT
// The fast decoder does exactly what a plain one does, on good streams, damaged ones and noise.
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cdecoder.h"
#include "dictionary/unpacking/cfileheader.h"
#include "tests/dictionary/plaindecoder.h"
#include "tests/dictionary/staticblock.h"
#include "tests/support/arjmember.h"
#include "tests/support/warningcapture.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;
using teskel::MemberStatus;

namespace
{
constexpr int runs = 120;

// Blocks of random codes with random literals and matches.
QByteArray randomStream(QRandomGenerator& generator)
{
    BitWriter bits;
    int position = 0;
    for (int blocks = generator.bounded(1, 4); blocks > 0; --blocks) {
        const CodeLengths positions = randomLengths(generator, 17, generator.bounded(2, 18));
        StaticBlock block(randomLengths(generator, 510, generator.bounded(100, 511)), positions);
        for (int i = generator.bounded(1, 600); i > 0; --i) {
            const auto byte = static_cast<quint8>(generator.bounded(256));
            const int length = generator.bounded(3, 257);
            // Rarely one that begins before the output.
            const int limit = generator.bounded(50) == 0 ? 65536 : qMax(1, position);
            const int distance = 1 + static_cast<int>(limit * generator.generateDouble() *
                                                      generator.generateDouble() * 0.999);
            if (generator.bounded(2) == 0 && block.canMatch(length, distance)) {
                block.match(length, distance);
                position += length;
            } else {
                block.literal(byte);
                ++position;
            }
        }
        block.writeTo(bits);
    }
    return bits.bytes();
}

QByteArray noise(QRandomGenerator& generator, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator.bounded(256));
    return bytes;
}

void compareWithPlain(int method, const QByteArray& packed, int size)
{
    const PlainResult plain = decodePlainly(method, packed, size);
    QByteArray member = makeMember(static_cast<quint8>(method), packed, plain.output);
    QCOMPARE(plain.output.size() == size, plain.hasGoodTables);
    if (!plain.hasGoodTables) {
        ArjMember header;
        header.method = static_cast<quint8>(method);
        header.compressedSize = static_cast<quint32>(packed.size());
        header.uncompressedSize = static_cast<quint32>(size);
        member = header.header() + packed;
    }

    CBuffer input;
    input.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
    CFileHeader header(&input);
    QByteArray target(size, '?');
    CBuffer output;
    output.OpenMemory(target.data(), target.size(), CBuffer::Write_Mode);
    CDecoder decoder;
    const WarningCapture warnings;
    const bool isGood = decoder.Decompress(&header, &input, &output);

    QCOMPARE(decoder.status(), plain.hasGoodTables ? MemberStatus::Ok : MemberStatus::BadCodes);
    QCOMPARE(isGood, plain.hasGoodTables);
    QCOMPARE(output.Tell(), static_cast<long>(plain.output.size()));
    QCOMPARE(target.left(plain.output.size()), plain.output);
    QCOMPARE(warnings.messages().size(), plain.wraps);
    const QString place = method == 4 ? u"decode.cpp (469)"_s : u"decode.cpp (335)"_s;
    QCOMPARE(warnings.count(place), plain.wraps);
    if (plain.hasGoodTables) {
        const quint64 fetched =
            qMin<quint64>(2 + (plain.bitsRead + 7) / 8, static_cast<quint64>(packed.size()));
        QCOMPARE(header.compressedSize(),
                 static_cast<quint32>(static_cast<quint64>(packed.size()) - fetched));
    }
}
} // namespace

class TestDecodeReference : public QObject
{
    Q_OBJECT

private slots:
    void randomBlocks();
    void randomBlocksCutShort();
    void randomBlocksWithFlippedBits();
    void noiseByEveryMethod();
};

void TestDecodeReference::randomBlocks()
{
    QRandomGenerator generator(1);
    for (int run = 0; run < runs && !QTest::currentTestFailed(); ++run) {
        const QByteArray packed = randomStream(generator);
        compareWithPlain(1, packed, generator.bounded(1, 32768));
    }
}

void TestDecodeReference::randomBlocksCutShort()
{
    QRandomGenerator generator(2);
    for (int run = 0; run < runs && !QTest::currentTestFailed(); ++run) {
        const QByteArray packed = randomStream(generator);
        compareWithPlain(2, packed.left(generator.bounded(static_cast<int>(packed.size()))), 5000);
    }
}

void TestDecodeReference::randomBlocksWithFlippedBits()
{
    QRandomGenerator generator(3);
    for (int run = 0; run < runs && !QTest::currentTestFailed(); ++run) {
        QByteArray packed = randomStream(generator);
        for (int flips = generator.bounded(1, 4); flips > 0; --flips) {
            const int at = generator.bounded(qMin(400, static_cast<int>(packed.size())));
            packed[at] = static_cast<char>(packed.at(at) ^ 1 << generator.bounded(8));
        }
        compareWithPlain(3, packed, generator.bounded(1, 20000));
    }
}

void TestDecodeReference::noiseByEveryMethod()
{
    QRandomGenerator generator(4);
    for (int run = 0; run < runs && !QTest::currentTestFailed(); ++run) {
        const QByteArray packed = noise(generator, generator.bounded(2000));
        for (int method = 1; method <= 4; ++method)
            compareWithPlain(method, packed, generator.bounded(1, 32768));
    }
}

QTEST_GUILESS_MAIN(TestDecodeReference)
#include "test_decode_reference.moc"
