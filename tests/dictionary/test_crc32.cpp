// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/crc32.h"

#include <QByteArray>
#include <QTest>

#include <zlib.h>

class TestCrc32 : public QObject
{
    Q_OBJECT

private slots:
    void knownValues_data();
    void knownValues();
    void agreesWithZlib();
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
    const auto size = static_cast<std::size_t>(bytes.size());
    QTEST(teskel::crc32(bytes.constData(), size), "crc");
    QTEST(teskel::crc32ByTable(bytes.constData(), size), "crc");
}

// For every length around the eight bytes that the table takes at a time, and for long ones.
void TestCrc32::agreesWithZlib()
{
    QByteArray bytes;
    for (int length = 0; length < 2000; ++length) {
        const auto* data = reinterpret_cast<const Bytef*>(bytes.constData());
        const auto size = static_cast<std::size_t>(length);
        const auto expected = static_cast<quint32>(::crc32(0, data, static_cast<uInt>(length)));
        QCOMPARE(teskel::crc32(data, size), expected);
        QCOMPARE(teskel::crc32ByTable(data, size), expected);
        bytes += static_cast<char>(length * 37 + 11);
    }
}

QTEST_GUILESS_MAIN(TestCrc32)
#include "test_crc32.moc"
