// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "tests/support/arjmember.h"

#include <QRandomGenerator>
#include <QTest>

using teskel::test::ArjMember;

namespace
{
// The bit reader as it is described: 16 bits held, filled byte by byte.
class PlainBitReader
{
public:
    PlainBitReader(const QByteArray& input, quint32 compressedSize)
        : _input(input)
        , _compressedSize(compressedSize)
    {
        fill(16);
    }
    unsigned get(int n)
    {
        const unsigned value = n == 0 ? 0 : _bits >> (16 - n);
        fill(n);
        return value;
    }
    [[nodiscard]] quint32 compressedSize() const { return _compressedSize; }

private:
    void fill(int n)
    {
        for (; n > 0; --n) {
            if (_left == 0) {
                _byte = 0;
                if (_compressedSize > 0) {
                    --_compressedSize;
                    _byte = _next < _input.size() ? static_cast<quint8>(_input.at(_next++)) : 0xFF;
                }
                _left = 8;
            }
            --_left;
            _bits = static_cast<quint16>(_bits << 1 | (_byte >> _left & 1));
        }
    }

    QByteArray _input;
    quint32 _compressedSize;
    quint16 _bits = 0;
    quint8 _byte = 0;
    int _left = 0;
    qsizetype _next = 0;
};

// A reader on `input`, with all that it borrows.
struct Fixture {
    Fixture(const QByteArray& bytes, quint32 compressedSize)
        : packed(bytes)
    {
        ArjMember member;
        member.compressedSize = compressedSize;
        headerBytes = member.header();
        headerSource.OpenMemory(headerBytes.constData(), headerBytes.size(), CBuffer::Read_Mode);
        header = std::make_unique<CFileHeader>(&headerSource);
        input.OpenMemory(packed.constData(), packed.size(), CBuffer::Read_Mode);
        bits.Attach(&input, header.get());
        bits.InitGetBits();
    }
    QByteArray packed;
    QByteArray headerBytes;
    CBuffer headerSource;
    CBuffer input;
    std::unique_ptr<CFileHeader> header;
    CBitBuffer bits;
};
} // namespace

class TestCBitBuffer : public QObject
{
    Q_OBJECT

private slots:
    void mostSignificantBitComesFirst();
    void preloadsTwoBytes();
    void countsThePackedBytesDown();
    void zerosFollowTheEnd();
    void missingBytesReadAsFF();
    void inputOfItsOwnMemoryIsNotGrown_data();
    void inputOfItsOwnMemoryIsNotGrown();
    void agreesWithThePlainReader_data();
    void agreesWithThePlainReader();
};

void TestCBitBuffer::mostSignificantBitComesFirst()
{
    Fixture f(QByteArray::fromHex("a50f"), 2);
    QCOMPARE(f.bits.GetBits(1), 1U);
    QCOMPARE(f.bits.GetBits(3), 2U);
    QCOMPARE(f.bits.GetBits(0), 0U);
    f.bits.FillBuf(4);
    QCOMPARE(f.bits.GetBits(8), 0x0FU);
}

void TestCBitBuffer::preloadsTwoBytes()
{
    const Fixture f(QByteArray(10, 'x'), 10);
    QCOMPARE(f.header->compressedSize(), 8U);
    QCOMPARE(f.input.Tell(), 2L);
}

void TestCBitBuffer::countsThePackedBytesDown()
{
    Fixture f(QByteArray(5, 'x'), 5);
    f.bits.GetBits(1);
    QCOMPARE(f.header->compressedSize(), 2U);
    f.bits.GetBits(7);
    QCOMPARE(f.header->compressedSize(), 2U);
    f.bits.GetBits(16);
    QCOMPARE(f.header->compressedSize(), 0U);
    QCOMPARE(f.input.Tell(), 5L);
    f.bits.GetBits(16);
    f.bits.GetBits(16);
    QCOMPARE(f.header->compressedSize(), 0U);
    QCOMPARE(f.input.Tell(), 5L);
}

// The header's size ends the stream even when more bytes follow.
void TestCBitBuffer::zerosFollowTheEnd()
{
    Fixture f(QByteArray(20, '\xFF'), 3);
    QCOMPARE(f.bits.GetBits(16), 0xFFFFU);
    QCOMPARE(f.bits.GetBits(16), 0xFF00U);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(f.bits.GetBits(16), 0U);
}

void TestCBitBuffer::missingBytesReadAsFF()
{
    Fixture f(QByteArray(1, '\0'), 3);
    QCOMPARE(f.bits.GetBits(16), 0x00FFU);
    QCOMPARE(f.bits.GetBits(16), 0xFF00U);
}

void TestCBitBuffer::inputOfItsOwnMemoryIsNotGrown_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<quint32>("claimed");
    QTest::newRow("no bytes") << 0 << 100U;
    QTest::newRow("less than is held ahead") << 1 << 100U;
    QTest::newRow("a few bytes less") << 20 << 23U;
    QTest::newRow("far less") << 20 << 0xFFFFFFFFU;
}

// A seek past the end would move the bytes that the reader looks at.
void TestCBitBuffer::inputOfItsOwnMemoryIsNotGrown()
{
    QFETCH(int, size);
    QFETCH(quint32, claimed);
    QByteArray packed(size, '\0');
    for (int i = 0; i < size; ++i)
        packed[i] = static_cast<char>(37 * i + 1);
    Fixture f(packed, claimed);
    CBuffer own;
    f.input.Seek(0, CBuffer::FromStart);
    QVERIFY(own.Open(&f.input, size));
    f.header->setCompressedSize(claimed);
    f.bits.Attach(&own, f.header.get());
    f.bits.InitGetBits();
    PlainBitReader plain(packed, claimed);
    for (int i = 0; i < 400; ++i) {
        QCOMPARE(f.bits.GetBits(i % 17), plain.get(i % 17));
        QCOMPARE(f.header->compressedSize(), plain.compressedSize());
    }
    QCOMPARE(own.Size(), long{size});
    QCOMPARE(own.Tell(), long{size});
}

void TestCBitBuffer::agreesWithThePlainReader_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<quint32>("claimed");
    for (const int size : {0, 1, 7, 8, 9, 15, 16, 100}) {
        for (const int more : {-9, -1, 0, 1, 20}) {
            if (size + more >= 0)
                QTest::addRow("%d bytes, %d claimed", size, size + more)
                    << size << static_cast<quint32>(size + more);
        }
    }
}

void TestCBitBuffer::agreesWithThePlainReader()
{
    QFETCH(int, size);
    QFETCH(quint32, claimed);
    QRandomGenerator generator(42);
    QByteArray packed(size, '\0');
    for (char& byte : packed)
        byte = static_cast<char>(generator.bounded(256));
    Fixture f(packed, claimed);
    PlainBitReader plain(packed, claimed);
    for (int i = 0; i < 400; ++i) {
        const int n = generator.bounded(17);
        QCOMPARE(f.bits.GetBits(n), plain.get(n));
        QCOMPARE(f.header->compressedSize(), plain.compressedSize());
    }
}

QTEST_GUILESS_MAIN(TestCBitBuffer)
#include "test_cbitbuffer.moc"
