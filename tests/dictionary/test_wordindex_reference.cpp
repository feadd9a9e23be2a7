// SPDX-License-Identifier: MIT
// The word index, searched by halves where it lies, gives what a search from the front gives, on
// indexes in order and on damaged ones.
#include "dictionary/wordindex.h"
#include "tests/support/plainindex.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstring>

using namespace teskel;
using namespace teskel::test;

namespace
{
enum Damage {
    None,
    TwoSwapped,
    Shuffled,
    Repeated,
    NoEnd,
    LastCut,
    EmptyWithin,
    TailOfRubbish,
    AnyBytes,
};

/// Texts that often begin alike, also beyond the first eight bytes, in both cases of letters.
QByteArray randomText(QRandomGenerator& generator, int maxLength)
{
    static const char letters[] = "aAbz -\xE4\xC4\xF7\xFF";
    QByteArray text(generator.bounded(maxLength + 1), 'a');
    for (char& letter : text) {
        if (generator.bounded(3) == 0)
            letter = letters[generator.bounded(static_cast<int>(sizeof letters) - 1)];
    }
    return text;
}

QByteArrayList ascendingKeys(QRandomGenerator& generator, int count)
{
    QByteArrayList keys;
    for (int i = 0; i < count; ++i)
        keys.append(randomText(generator, 14) + 'a');
    std::stable_sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) {
        return foldedCompare(a.constData(), b.constData()) < 0;
    });
    return keys;
}

template<typename List>
void shuffle(List& list, QRandomGenerator& generator)
{
    for (qsizetype i = list.size() - 1; i > 0; --i)
        list.swapItemsAt(i, generator.bounded(static_cast<int>(i + 1)));
}

QByteArray indexBytes(QRandomGenerator& generator, Damage damage)
{
    const int count = generator.bounded(1, 90);
    QByteArrayList keys = ascendingKeys(generator, count);
    const auto somewhere = [&] { return generator.bounded(count); };
    if (damage == TwoSwapped)
        keys.swapItemsAt(somewhere(), somewhere());
    if (damage == Shuffled)
        shuffle(keys, generator);
    if (damage == Repeated)
        keys.insert(somewhere(), 12, keys.at(somewhere()));
    if (damage == EmptyWithin)
        keys.insert(somewhere(), QByteArray());
    QByteArray bytes = keys.join('\0');
    if (damage == LastCut)
        return bytes;
    bytes += '\0';
    if (damage == NoEnd)
        return bytes;
    bytes += '\0';
    if (damage == TailOfRubbish)
        bytes += randomText(generator, 40);
    if (damage == AnyBytes) {
        for (int i = generator.bounded(1, 6); i > 0; --i)
            bytes[generator.bounded(static_cast<int>(bytes.size()))] =
                static_cast<char>(generator.bounded(256));
        bytes.truncate(generator.bounded(static_cast<int>(bytes.size() + 1)));
    }
    return bytes;
}

WordIndex indexOf(const QByteArray& bytes, int wordRecords)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    auto keys = std::make_unique<char[]>(size + FoldedHead::bytes);
    std::memcpy(keys.get(), bytes.constData(), size);
    WordIndex index;
    index.take(std::move(keys), size, static_cast<std::size_t>(wordRecords), true);
    return index;
}
} // namespace

class TestWordIndexReference : public QObject
{
    Q_OBJECT

private slots:
    void searchesAsFromTheFront_data();
    void searchesAsFromTheFront();
};

void TestWordIndexReference::searchesAsFromTheFront_data()
{
    QTest::addColumn<int>("damage");
    QTest::newRow("in order") << int{None};
    QTest::newRow("two keys swapped") << int{TwoSwapped};
    QTest::newRow("no order at all") << int{Shuffled};
    QTest::newRow("a key repeated") << int{Repeated};
    QTest::newRow("no empty key at the end") << int{NoEnd};
    QTest::newRow("no NUL behind the last key") << int{LastCut};
    QTest::newRow("an empty key within") << int{EmptyWithin};
    QTest::newRow("rubbish behind the end") << int{TailOfRubbish};
    QTest::newRow("any bytes changed, and cut off") << int{AnyBytes};
}

void TestWordIndexReference::searchesAsFromTheFront()
{
    QFETCH(int, damage);
    QRandomGenerator generator(static_cast<quint32>(damage) + 1);
    for (int run = 0; run < 400; ++run) {
        const QByteArray bytes = indexBytes(generator, static_cast<Damage>(damage));
        // More keys than records, as many, and fewer.
        const int wordRecords = generator.bounded(100);
        WordIndex index = indexOf(bytes, wordRecords);
        const PlainIndex plain(bytes);
        QCOMPARE(index.isEmpty(), plain.keys().isEmpty());
        QCOMPARE(index.isTopicIndex(), bytes.startsWith('#'));
        // What one search finds out about the order must not mislead the next one.
        for (int search = 0; search < 40; ++search) {
            const bool isKey = generator.bounded(2) == 0 && !plain.keys().isEmpty();
            const QByteArray word =
                isKey ? plain.keys().at(generator.bounded(static_cast<int>(plain.keys().size())))
                      : randomText(generator, 16);
            const std::size_t length =
                generator.bounded(2) == 0 ? wholeText : static_cast<std::size_t>(word.size());
            // A record beyond the last is as good as any other: nothing is found from there on.
            const auto expected = std::min(plain.recordFor(word, length), wordRecords);
            const auto found = static_cast<int>(index.recordFor({word.constData(), length}));
            QCOMPARE(std::min(found, wordRecords), expected);
        }
    }
}

QTEST_GUILESS_MAIN(TestWordIndexReference)
#include "test_wordindex_reference.moc"
