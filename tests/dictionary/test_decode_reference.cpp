// SPDX-License-Identifier: MIT
// The reader's decoder does exactly what a plain one does, on good streams, damaged ones and noise.
#include "tests/dictionary/decodercomparison.h"
#include "tests/dictionary/randomstream.h"

#include <QTest>

using namespace teskel::test;

namespace
{
constexpr int streams = 200;
constexpr int variants = 12; // of each stream, damaged and measured anew
constexpr int largest = 32767;

// Changes a stream and what its header says of it.
using Change = void (*)(QRandomGenerator& generator, PackedStream& stream);

void leave(QRandomGenerator& /*generator*/, PackedStream& /*stream*/) {}

void cutShort(QRandomGenerator& generator, PackedStream& stream)
{
    stream.bytes.truncate(generator.bounded(static_cast<int>(stream.bytes.size()) + 1));
    stream.claimedSize = static_cast<quint32>(stream.bytes.size());
}

void flip(QRandomGenerator& generator, PackedStream& stream)
{
    flipBits(generator, stream.bytes);
}

void claimMore(QRandomGenerator& generator, PackedStream& stream)
{
    cutShort(generator, stream);
    stream.claimedSize += generator.bounded(2) == 0 ? generator.bounded(1U, 200U) : 0xFFFF0000;
}

void claimLess(QRandomGenerator& generator, PackedStream& stream)
{
    stream.claimedSize = generator.bounded(stream.claimedSize + 1);
}

void makeRoomForLess(QRandomGenerator& generator, PackedStream& stream)
{
    stream.room = generator.bounded(stream.size + 1);
}

void makeRoomForMore(QRandomGenerator& generator, PackedStream& stream)
{
    stream.room += generator.bounded(1, 100);
}

void replaceByNoise(QRandomGenerator& generator, PackedStream& stream)
{
    stream.bytes = noise(generator, generator.bounded(400));
    stream.claimedSize = static_cast<quint32>(stream.bytes.size());
}
} // namespace

Q_DECLARE_METATYPE(Change)

class TestDecodeReference : public QObject
{
    Q_OBJECT

private slots:
    void streamsDecodeAsPlainly_data();
    void streamsDecodeAsPlainly();
};

void TestDecodeReference::streamsDecodeAsPlainly_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<Change>("change");
    const struct {
        const char* name;
        Change change;
    } changes[] = {
        {"as they are", leave},
        {"cut short", cutShort},
        {"with flipped bits", flip},
        {"shorter than claimed", claimMore},
        {"longer than claimed", claimLess},
        {"into a small target", makeRoomForLess},
        {"into a large target", makeRoomForMore},
        {"noise", replaceByNoise},
    };
    for (const auto& [name, change] : changes) {
        for (const int method : {1, 4})
            QTest::addRow("%s, method %d", name, method) << method << change;
    }
}

void TestDecodeReference::streamsDecodeAsPlainly()
{
    QFETCH(int, method);
    QFETCH(Change, change);
    QRandomGenerator generator(7);
    for (int made = 0; made < streams; ++made) {
        PackedStream whole;
        whole.bytes = method == 4 ? randomFastest(generator) : randomBlocks(generator);
        whole.claimedSize = static_cast<quint32>(whole.bytes.size());
        for (int variant = 0; variant < variants; ++variant) {
            PackedStream stream = whole;
            stream.method = method == 4 ? 4 : generator.bounded(1, 4);
            stream.size = generator.bounded(1, variant == 0 ? largest + 1 : 3000);
            stream.room = stream.size;
            change(generator, stream);
            const QString difference = differenceFromPlain(stream);
            if (!difference.isEmpty())
                QFAIL(qPrintable(QStringLiteral("stream %1, variant %2: %3")
                                     .arg(made)
                                     .arg(variant)
                                     .arg(difference)));
        }
    }
}

QTEST_GUILESS_MAIN(TestDecodeReference)
#include "test_decode_reference.moc"
