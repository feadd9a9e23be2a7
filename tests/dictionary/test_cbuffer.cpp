// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cbuffer.h"

#include <QTest>

#include <limits>

class TestCBuffer : public QObject
{
    Q_OBJECT

private slots:
    void readsBytesUntilTheEnd();
    void readsLittleEndianNumbers();
    void endOfDataReadsAsFF();
    void readCopiesAtMostWhatIsLeft();
    void readDoesNothingInWriteMode();
    void bytesAreFetchedInWriteModeToo();
    void seeks_data();
    void seeks();
    void seekGrowsOwnMemory();
    void seekGrowsOwnMemoryWithinReason();
    void openTakesACopy();
    void openFromASourceThatIsTooShortFails();
    void openFromASourceInWriteModeFails();
    void openTakesNoMemoryForSizesThatCannotBe_data();
    void openTakesNoMemoryForSizesThatCannotBe();
    void openFromItselfKeepsTheRest();
    void claimedSizesAreClamped_data();
    void claimedSizesAreClamped();
    void writesUntilTheEnd();
    void writeDoesNothingInReadMode();
    void bytesBeforeThePositionCanBeFetchedAndChanged();
    void borrowedBytesCanBeChangedInReadMode();
    void ownBytesCanBeChanged();
};

void TestCBuffer::readsBytesUntilTheEnd()
{
    CBuffer buffer;
    QVERIFY(buffer.OpenMemory("a\xFF", 2, CBuffer::Read_Mode));
    QCOMPARE(buffer.Size(), 2L);
    QCOMPARE(buffer.GetC(), int{'a'});
    QCOMPARE(buffer.GetC(), 0xFF);
    QCOMPARE(buffer.Tell(), 2L);
    QCOMPARE(buffer.GetC(), -1);
    QCOMPARE(buffer.Tell(), 2L);
}

void TestCBuffer::readsLittleEndianNumbers()
{
    CBuffer buffer;
    buffer.OpenMemory("\x01\x02\x03\x04\x05\x86\x07", 7, CBuffer::Read_Mode);
    QCOMPARE(buffer.getbyte(), quint8{0x01});
    QCOMPARE(buffer.getword(), quint16{0x0302});
    QCOMPARE(buffer.getlongword(), quint32{0x07860504});
}

void TestCBuffer::endOfDataReadsAsFF()
{
    CBuffer buffer;
    buffer.OpenMemory("\x12", 1, CBuffer::Read_Mode);
    QCOMPARE(buffer.getword(), quint16{0xFF12});
    QCOMPARE(buffer.getbyte(), quint8{0xFF});
    QCOMPARE(buffer.getlongword(), quint32{0xFFFFFFFF});
}

void TestCBuffer::readCopiesAtMostWhatIsLeft()
{
    CBuffer buffer;
    buffer.OpenMemory("abcd", 4, CBuffer::Read_Mode);
    char target[8] = {};
    QCOMPARE(buffer.Read(target, 3), 3L);
    QCOMPARE(buffer.Read(target + 3, 5), 1L);
    QCOMPARE(target, "abcd");
    QCOMPARE(buffer.Read(target, 1), 0L);
    QCOMPARE(buffer.Read(target, -1), 0L);
}

void TestCBuffer::readDoesNothingInWriteMode()
{
    char memory[] = "abc";
    CBuffer buffer;
    buffer.OpenMemory(memory, 3, CBuffer::Write_Mode);
    char target = 'x';
    QCOMPARE(buffer.Read(&target, 1), 0L);
    QCOMPARE(target, 'x');
}

void TestCBuffer::bytesAreFetchedInWriteModeToo()
{
    char memory[] = "abc";
    CBuffer buffer;
    buffer.OpenMemory(memory, 3, CBuffer::Write_Mode);
    QCOMPARE(buffer.GetC(), int{'a'});
    QVERIFY(buffer.Write("X")); // at the one position that both share
    QCOMPARE(buffer.getbyte(), quint8{'c'});
    QCOMPARE(buffer.GetC(), -1);
    QCOMPARE(memory, "aXc");
}

void TestCBuffer::seeks_data()
{
    QTest::addColumn<long>("offset");
    QTest::addColumn<int>("mode");
    QTest::addColumn<long>("position");
    QTest::newRow("from the start") << 3L << int{CBuffer::FromStart} << 3L;
    QTest::newRow("from the position") << 1L << int{CBuffer::FromPosition} << 3L;
    QTest::newRow("back from the position") << -1L << int{CBuffer::FromPosition} << 1L;
    QTest::newRow("from the end") << -4L << int{CBuffer::FromEnd} << 2L;
    QTest::newRow("to the end") << 0L << int{CBuffer::FromEnd} << 6L;
    QTest::newRow("before the start") << -9L << int{CBuffer::FromPosition} << 0L;
    QTest::newRow("past the end of borrowed memory") << 9L << int{CBuffer::FromStart} << 6L;
    QTest::newRow("far past the end") << 0x7FFFFFFFFFL << int{CBuffer::FromPosition} << 6L;
    constexpr long largest = std::numeric_limits<long>::max();
    constexpr long smallest = std::numeric_limits<long>::min();
    QTest::newRow("largest, start") << largest << int{CBuffer::FromStart} << 6L;
    QTest::newRow("largest, position") << largest << int{CBuffer::FromPosition} << 6L;
    QTest::newRow("largest, end") << largest << int{CBuffer::FromEnd} << 6L;
    QTest::newRow("smallest, start") << smallest << int{CBuffer::FromStart} << 0L;
    QTest::newRow("smallest, position") << smallest << int{CBuffer::FromPosition} << 0L;
    QTest::newRow("smallest, end") << smallest << int{CBuffer::FromEnd} << 0L;
}

void TestCBuffer::seeks()
{
    QFETCH(long, offset);
    QFETCH(int, mode);
    CBuffer buffer;
    buffer.OpenMemory("abcdef", 6, CBuffer::Read_Mode);
    buffer.Seek(2, CBuffer::FromStart);
    buffer.Seek(offset, static_cast<CBuffer::ESeekMode>(mode));
    QTEST(buffer.Tell(), "position");
}

void TestCBuffer::seekGrowsOwnMemory()
{
    CBuffer source;
    source.OpenMemory("abc", 3, CBuffer::Read_Mode);
    CBuffer buffer;
    QVERIFY(buffer.Open(&source, 3));
    buffer.Seek(5, CBuffer::FromStart);
    QCOMPARE(buffer.Tell(), 5L);
    QCOMPARE(buffer.Size(), 5L);
    quint8 byte = 0xAA;
    QVERIFY(buffer.GetByteAt(&byte, 4));
    QCOMPARE(byte, quint8{0});
    QVERIFY(buffer.GetByteAt(&byte, 2));
    QCOMPARE(byte, quint8{'c'});
}

void TestCBuffer::seekGrowsOwnMemoryWithinReason()
{
    CBuffer source;
    source.OpenMemory("abc", 3, CBuffer::Read_Mode);
    CBuffer buffer;
    QVERIFY(buffer.Open(&source, 3));
    for (const long offset : {(64L << 20) + 1, std::numeric_limits<long>::max()}) {
        buffer.Seek(offset, CBuffer::FromStart);
        QCOMPARE(buffer.Size(), 3L);
        QCOMPARE(buffer.Tell(), 3L);
    }
}

void TestCBuffer::openTakesACopy()
{
    char memory[] = "abcdef";
    CBuffer source;
    source.OpenMemory(memory, 6, CBuffer::Read_Mode);
    source.Seek(1, CBuffer::FromStart);
    CBuffer buffer;
    QVERIFY(buffer.Open(&source, 3));
    QCOMPARE(source.Tell(), 4L);
    memory[1] = '!';
    QCOMPARE(buffer.mode(), CBuffer::Read_Mode);
    QCOMPARE(buffer.Size(), 3L);
    QCOMPARE(buffer.GetC(), int{'b'});
}

// What the source has is taken; the rest of the block is zeros.
void TestCBuffer::openFromASourceThatIsTooShortFails()
{
    CBuffer source;
    source.OpenMemory("abc", 3, CBuffer::Read_Mode);
    source.Seek(1, CBuffer::FromStart);
    CBuffer buffer;
    QVERIFY(!buffer.Open(&source, 4));
    QCOMPARE(source.Tell(), 3L);
    QCOMPARE(buffer.mode(), CBuffer::Read_Mode);
    QCOMPARE(buffer.Tell(), 0L);
    QCOMPARE(buffer.Size(), 4L);
    char bytes[4];
    QCOMPARE(buffer.Read(bytes, 4), 4L);
    QCOMPARE(QByteArray(bytes, 4), QByteArray("bc\0\0", 4));
}

void TestCBuffer::openFromASourceInWriteModeFails()
{
    char memory[] = "abc";
    CBuffer source;
    source.OpenMemory(memory, 3, CBuffer::Write_Mode);
    CBuffer buffer;
    QVERIFY(!buffer.Open(&source, 3));
    QCOMPARE(source.Tell(), 0L);
    QVERIFY(buffer.Open(&source, 0)); // all of no bytes came
}

void TestCBuffer::openTakesNoMemoryForSizesThatCannotBe_data()
{
    QTest::addColumn<long>("size");
    QTest::newRow("negative") << -1L;
    QTest::newRow("smallest") << std::numeric_limits<long>::min();
    QTest::newRow("past the growth of own memory") << (64L << 20) + 1;
    QTest::newRow("largest") << std::numeric_limits<long>::max();
}

void TestCBuffer::openTakesNoMemoryForSizesThatCannotBe()
{
    QFETCH(long, size);
    CBuffer source;
    source.OpenMemory("abc", 3, CBuffer::Read_Mode);
    CBuffer buffer;
    QVERIFY(!buffer.Open(&source, size));
    QCOMPARE(buffer.Size(), 0L);
    QCOMPARE(buffer.GetC(), -1);
}

void TestCBuffer::openFromItselfKeepsTheRest()
{
    CBuffer buffer;
    buffer.OpenMemory("abcd", 4, CBuffer::Read_Mode);
    buffer.Seek(1, CBuffer::FromStart);
    QVERIFY(buffer.Open(&buffer, 3));
    QVERIFY(buffer.Open(&buffer, 2));
    QCOMPARE(buffer.Size(), 2L);
    QCOMPARE(buffer.GetC(), int{'b'});
}

void TestCBuffer::claimedSizesAreClamped_data()
{
    QTest::addColumn<long>("claimed");
    QTest::addColumn<long>("size");
    constexpr long largest = std::numeric_limits<qint32>::max();
    QTest::newRow("negative") << -5L << 0L;
    QTest::newRow("smallest") << std::numeric_limits<long>::min() << 0L;
    QTest::newRow("largest that there is") << largest << largest;
    QTest::newRow("one more") << largest + 1 << largest;
    QTest::newRow("a multiple of 4 GB") << (1L << 32) + 5 << largest;
}

void TestCBuffer::claimedSizesAreClamped()
{
    QFETCH(long, claimed);
    CBuffer buffer;
    buffer.OpenMemory("abc", claimed, CBuffer::Read_Mode);
    QTEST(buffer.Size(), "size");
    buffer.OpenMemory(nullptr, claimed, CBuffer::Read_Mode);
    QCOMPARE(buffer.Size(), 0L);
    QCOMPARE(buffer.GetC(), -1);
}

void TestCBuffer::writesUntilTheEnd()
{
    char memory[] = "...";
    CBuffer buffer;
    buffer.OpenMemory(memory, 2, CBuffer::Write_Mode);
    QVERIFY(buffer.Write("x"));
    QVERIFY(buffer.Write("y"));
    QVERIFY(!buffer.Write("z"));
    QCOMPARE(memory, "xy.");
    QCOMPARE(buffer.Tell(), 2L);
}

void TestCBuffer::writeDoesNothingInReadMode()
{
    char memory[] = "..";
    CBuffer buffer;
    buffer.OpenMemory(memory, 2, CBuffer::Read_Mode);
    QVERIFY(!buffer.Write("x"));
    QCOMPARE(memory, "..");
}

void TestCBuffer::bytesBeforeThePositionCanBeFetchedAndChanged()
{
    char memory[] = "abcd";
    CBuffer buffer;
    buffer.OpenMemory(memory, 4, CBuffer::Write_Mode);
    buffer.Seek(2, CBuffer::FromStart);
    char byte = '?';
    QVERIFY(buffer.GetByteAt(&byte, 1));
    QCOMPARE(byte, 'b');
    QVERIFY(!buffer.GetByteAt(&byte, 2));
    QVERIFY(!buffer.GetByteAt(&byte, -1));
    QVERIFY(buffer.PutByteAt("X", 0));
    QVERIFY(!buffer.PutByteAt("X", 2));
    QVERIFY(!buffer.PutByteAt("X", -1));
    QCOMPARE(memory, "Xbcd");
}

void TestCBuffer::borrowedBytesCanBeChangedInReadMode()
{
    char memory[] = "abcd";
    CBuffer buffer;
    buffer.OpenMemory(memory, 4, CBuffer::Read_Mode);
    buffer.Seek(2, CBuffer::FromStart);
    QVERIFY(buffer.PutByteAt("X", 1));
    QVERIFY(!buffer.PutByteAt("X", 2));
    QCOMPARE(memory, "aXcd");
}

void TestCBuffer::ownBytesCanBeChanged()
{
    CBuffer source;
    source.OpenMemory("abc", 3, CBuffer::Read_Mode);
    CBuffer buffer;
    QVERIFY(buffer.Open(&source, 3));
    buffer.Seek(2, CBuffer::FromStart);
    QVERIFY(buffer.PutByteAt("X", 1));
    char byte = '?';
    QVERIFY(buffer.GetByteAt(&byte, 1));
    QCOMPARE(byte, 'X');
}

QTEST_GUILESS_MAIN(TestCBuffer)
#include "test_cbuffer.moc"
