// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/crc32.h"

#include <QByteArray>
#include <QTest>

class TestCrc32 : public QObject
{
    Q_OBJECT

private slots:
    void knownValues_data();
    void knownValues();
    void agreesWithTheDefinition();
};

void TestCrc32::knownValues_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint32>("crc");
    QTest::newRow("nothing") << QByteArray() << quint32{0};
    QTest::newRow("check value of the algorithm") << QByteArray("123456789") << quint32{0xCBF43926};
    QTest::newRow("one byte") << QByteArray("a") << quint32{0xE8B7BE43};
}

void TestCrc32::knownValues()
{
    QFETCH(QByteArray, bytes);
    QTEST(teskel::crc32(bytes.constData(), static_cast<std::size_t>(bytes.size())), "crc");
}

// Bit by bit, for every length around the eight bytes that are taken at a time.
void TestCrc32::agreesWithTheDefinition()
{
    QByteArray bytes;
    quint32 expected = 0xFFFFFFFF;
    for (int length = 0; length < 70; ++length) {
        QCOMPARE(teskel::crc32(bytes.constData(), static_cast<std::size_t>(bytes.size())),
                 ~expected);
        const auto byte = static_cast<char>(length * 37 + 11);
        bytes += byte;
        expected ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            expected = (expected & 1) != 0 ? expected >> 1 ^ 0xEDB88320 : expected >> 1;
    }
}

QTEST_GUILESS_MAIN(TestCrc32)
#include "test_crc32.moc"
