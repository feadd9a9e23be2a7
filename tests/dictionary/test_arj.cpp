// SPDX-License-Identifier: MIT
// What Debian's arj packs, the decoder unpacks: an independent witness for all four methods.
#include "dictionary/unpacking/decode.h"
#include "tests/support/arjarchiver.h"

#include <QRandomGenerator>
#include <QTest>

using namespace teskel;
using namespace teskel::test;

namespace
{
QByteArray randomBytes(int size, int alphabet, quint32 seed)
{
    QRandomGenerator generator(seed);
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator.bounded(alphabet));
    return bytes;
}

// Headwords and articles, with the repetitions of real ones.
QByteArray dictionaryText(int size, quint32 seed)
{
    static const char* const parts[] = {"Haus", "hold", "<n>", " der ", "ung", "keit",
                                        "\xE4", "1. ",  "ver", "lauf",  "en",  ", ",
                                        "; ",   "Ge",   "ber", "st"};
    QRandomGenerator generator(seed);
    QByteArray text;
    while (text.size() < size) {
        for (int i = generator.bounded(1, 6); i > 0; --i)
            text += parts[generator.bounded(16)];
        text += '\0';
    }
    return text.left(size);
}

// Blocks far apart that repeat each other: long distances.
QByteArray farRepetitions(int size)
{
    const QByteArray block = randomBytes(13000, 256, 7);
    QByteArray bytes;
    while (bytes.size() < size)
        bytes += block;
    return bytes.left(size);
}
} // namespace

class TestArj : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void unpacksWhatArjPacked_data();
    void unpacksWhatArjPacked();
    void everyMethodUnpacksToTheSameBytes();
    void unpacksAMemberFollowedByOtherBytes();
};

void TestArj::initTestCase()
{
    QVERIFY2(hasArj(), "arj is not installed (Debian package: arj)");
}

void TestArj::unpacksWhatArjPacked_data()
{
    QTest::addColumn<QByteArray>("original");
    QTest::addColumn<int>("method");

    const QList<QPair<const char*, QByteArray>> contents = {
        {"one byte over and over", QByteArray(20000, 'x')},
        {"two bytes in turn", QByteArray("ab").repeated(9000)},
        {"seven bytes in turn", QByteArray("abcdefg").repeated(3000)},
        {"nine bytes in turn", QByteArray("abcdefghi").repeated(3000)},
        {"dictionary text of 300 bytes", dictionaryText(300, 1)},
        {"dictionary text of 4 KB", dictionaryText(4096, 2)},
        {"dictionary text of the largest size", dictionaryText(32767, 3)},
        {"few values", randomBytes(10000, 3, 4)},
        {"noise after text", dictionaryText(3000, 5) + randomBytes(3000, 256, 6)},
        {"distances of 13,000 bytes", farRepetitions(32767)},
    };
    for (const auto& [name, original] : contents) {
        for (int method = 1; method <= 4; ++method)
            QTest::addRow("%s, method %d", name, method) << original << method;
    }
}

void TestArj::unpacksWhatArjPacked()
{
    QFETCH(QByteArray, original);
    QFETCH(int, method);
    QString error;
    QByteArray member = packWithArj(original, method, error);
    QVERIFY2(!member.isEmpty(), qPrintable(error));

    CBuffer input;
    input.OpenMemory(member.constData(), member.size(), CBuffer::Read_Mode);
    const CFileHeader header(&input);
    QVERIFY(header.isValid());
    QCOMPARE(header.fileName(), "r");
    QCOMPARE(header.uncompressedSize(), static_cast<quint32>(original.size()));
    QCOMPARE(int{header.method()}, method);

    MemberBlock block;
    QCOMPARE(decodeMember(member.constData(), static_cast<std::size_t>(member.size()), block),
             MemberStatus::Ok);
    QCOMPARE(QByteArray(block.data.get(), block.size), original);

    QByteArray target(original.size(), '?');
    QVERIFY(DecompressBuffer(target.data(), target.size(), member.data(), member.size()));
    QCOMPARE(target, original);
}

void TestArj::everyMethodUnpacksToTheSameBytes()
{
    const QByteArray original = dictionaryText(6000, 11);
    for (int method = 1; method <= 4; ++method) {
        QString error;
        const QByteArray member = packWithArj(original, method, error);
        QVERIFY2(!member.isEmpty(), qPrintable(error));
        MemberBlock block;
        QCOMPARE(decodeMember(member.constData(), static_cast<std::size_t>(member.size()), block),
                 MemberStatus::Ok);
        QCOMPARE(QByteArray(block.data.get(), block.size), original);
    }
}

void TestArj::unpacksAMemberFollowedByOtherBytes()
{
    const QByteArray original = dictionaryText(5000, 12);
    for (int method = 1; method <= 4; ++method) {
        QString error;
        const QByteArray packed = packWithArj(original, method, error);
        QVERIFY2(!packed.isEmpty(), qPrintable(error));
        const QByteArray member = packed + QByteArray(20, '\xFF');
        MemberBlock block;
        QCOMPARE(decodeMember(member.constData(), static_cast<std::size_t>(member.size()), block),
                 MemberStatus::Ok);
        QCOMPARE(QByteArray(block.data.get(), block.size), original);
    }
}

QTEST_GUILESS_MAIN(TestArj)
#include "test_arj.moc"
