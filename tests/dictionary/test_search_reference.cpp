// SPDX-License-Identifier: MIT
// Search by halves and moves by whole records give what a search and moves word by word give, on
// dictionaries in order and on dictionaries in any disorder.
#include "dictionary/qtdictionary.h"
#include "tests/dictionary/plaindictionary.h"
#include "tests/support/arjmember.h"
#include "tests/support/dictionarywriter.h"
#include "tests/support/warningcapture.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

using namespace teskel::test;

namespace
{
enum Disorder { None, ShuffledWords, ShuffledKeys, ShuffledRecords, Everything };

QByteArray randomWord(QRandomGenerator& generator, int maxLength)
{
    static const char letters[] = "abcABz -\xE4\xC4\xFF";
    QByteArray word(generator.bounded(maxLength + 1), '\0');
    for (char& letter : word)
        letter = letters[generator.bounded(static_cast<int>(sizeof letters) - 1)];
    return word;
}

QByteArray folded(QByteArray word)
{
    QtDictionary().toUpper(word.data());
    return word;
}

template<typename List>
void shuffle(List& list, QRandomGenerator& generator)
{
    for (qsizetype i = list.size() - 1; i > 0; --i)
        list.swapItemsAt(i, generator.bounded(static_cast<int>(i + 1)));
}

// A random dictionary, as a file and as the plain one.
struct Sample {
    QByteArray index;
    QList<std::optional<QByteArray>> records;

    Sample(QRandomGenerator& generator, Disorder disorder)
    {
        QByteArrayList words;
        for (int i = generator.bounded(1, 60); i > 0; --i)
            words.append(randomWord(generator, 4) + "a");
        std::stable_sort(words.begin(), words.end(),
                         [](const auto& a, const auto& b) { return folded(a) < folded(b); });
        if (disorder == ShuffledWords || disorder == Everything)
            shuffle(words, generator);
        QByteArrayList keys;
        while (!words.isEmpty()) {
            QList<Entry> entries;
            keys.append(words.first());
            for (int i = generator.bounded(1, 9); i > 0 && !words.isEmpty(); --i)
                entries.append({words.takeFirst(), randomWord(generator, 10)});
            records.append(DictionaryWriter::recordText(entries));
        }
        if (disorder == ShuffledKeys || disorder == Everything)
            shuffle(keys, generator);
        if (disorder == ShuffledRecords || disorder == Everything)
            shuffle(records, generator);
        if (disorder == Everything)
            damage(generator, keys);
        index = keys.join('\0') + '\0';
        if (disorder != Everything || generator.bounded(2) == 0)
            index += '\0';
        if (index.startsWith('#'))
            index[0] = 'x';
    }

    void damage(QRandomGenerator& generator, QByteArrayList& keys)
    {
        for (int i = generator.bounded(3); i > 0; --i)
            keys.insert(generator.bounded(static_cast<int>(keys.size() + 1)),
                        randomWord(generator, 3));
        for (int i = generator.bounded(3); i > 0 && keys.size() > 1; --i)
            keys.removeLast();
        for (std::optional<QByteArray>& record : records) {
            switch (generator.bounded(8)) {
            case 0:
                record.reset();
                break;
            case 1:
                record = QByteArray(1, '\0');
                break;
            case 2:
                record->chop(generator.bounded(static_cast<int>(record->size())));
                break;
            default:
                break;
            }
        }
    }

    [[nodiscard]] bool write(const QString& path) const
    {
        DictionaryWriter writer;
        for (const std::optional<QByteArray>& record : records)
            writer.addPackedRecord("", record ? literalMember(*record) : QByteArray("damaged"));
        return writer.setIndex(index).write(path);
    }
};

void compareSearches(QtDictionary& dictionary, const PlainDictionary& plain,
                     QRandomGenerator& generator)
{
    for (int i = 0; i < 60; ++i) {
        const QByteArray word = randomWord(generator, 5) + (i % 2 == 0 ? "a" : "");
        for (const bool prefix : {false, true}) {
            QCOMPARE(
                dictionary.findWord(word.constData(), CursorPosition::invalid(), prefix).value(),
                plain.findWord(word, prefix).value());
        }
    }
}

void compareEntries(QtDictionary& dictionary, const PlainDictionary& plain, quint16 record)
{
    QCOMPARE(int{dictionary.getTotalWordCount(record)}, plain.count(record));
    for (int entry = 0; entry < plain.count(record); ++entry) {
        const auto word = static_cast<quint16>(entry);
        const CursorPosition position = CursorPosition::at(record, word);
        QCOMPARE(QByteArray(dictionary.getWordAt(position)), plain.word(position));
        char article[32];
        unsigned int size = sizeof article;
        QVERIFY(dictionary.getDescription(position, article, &size));
        QCOMPARE(QByteArray(article), plain.article(position));
    }
}

void compareMoves(QtDictionary& dictionary, const PlainDictionary& plain, int records,
                  QRandomGenerator& generator)
{
    const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
    for (int i = 0; i < 60; ++i) {
        const CursorPosition from =
            CursorPosition::at(static_cast<quint16>(generator.bounded(records)),
                               static_cast<quint16>(generator.bounded(8)));
        const int delta = generator.bounded(-40, 41);
        QCOMPARE(iterator->isValid(from), plain.isValid(from));
        QCOMPARE(iterator->move(from, delta).value(), plain.move(from, delta).value());
    }
}
} // namespace

class TestSearchReference : public QObject
{
    Q_OBJECT

private slots:
    void randomDictionaries_data();
    void randomDictionaries();
};

void TestSearchReference::randomDictionaries_data()
{
    QTest::addColumn<int>("disorder");
    QTest::newRow("in order") << int{None};
    QTest::newRow("words in disorder") << int{ShuffledWords};
    QTest::newRow("keys in disorder") << int{ShuffledKeys};
    QTest::newRow("records in disorder") << int{ShuffledRecords};
    QTest::newRow("everything damaged") << int{Everything};
}

void TestSearchReference::randomDictionaries()
{
    QFETCH(int, disorder);
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.PDB"_s);
    QRandomGenerator generator(static_cast<quint32>(disorder) + 1);
    for (int run = 0; run < 60 && !QTest::currentTestFailed(); ++run) {
        const Sample sample(generator, static_cast<Disorder>(disorder));
        QVERIFY(sample.write(path));
        const WarningCapture warnings; // of damaged records
        QtDictionary dictionary;
        QCOMPARE(dictionary.open(path), 0);
        const PlainDictionary plain(sample.index, sample.records);
        compareSearches(dictionary, plain, generator);
        const auto records = static_cast<int>(sample.records.size());
        for (int record = 0; record < records && !QTest::currentTestFailed(); ++record)
            compareEntries(dictionary, plain, static_cast<quint16>(record));
        compareMoves(dictionary, plain, records, generator);
        if (disorder != Everything)
            QCOMPARE(warnings.messages(), QStringList());
    }
}

QTEST_GUILESS_MAIN(TestSearchReference)
#include "test_search_reference.moc"
