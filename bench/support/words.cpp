// SPDX-License-Identifier: MIT
#include "bench/support/words.h"

#include <algorithm>
#include <random>

namespace teskel::bench
{

void openOrDie(QtDictionary& dictionary, const QString& path)
{
    if (dictionary.open(path) != 0)
        qFatal("%s is not a dictionary", qUtf8Printable(path));
}

qint64 entryCount(QtDictionary& dictionary)
{
    qint64 count = 0;
    for (unsigned short record = 0; record < dictionary.getWordRecordCount(); ++record)
        count += dictionary.getTotalWordCount(record);
    return count;
}

QList<CursorPosition> samplePositions(QtDictionary& dictionary, int count)
{
    std::minstd_rand random(20); // the same words in every run
    const unsigned records = dictionary.getWordRecordCount();
    QList<CursorPosition> positions;
    for (int number = 0; number < count; ++number) {
        const auto record = static_cast<quint16>(qint64{number} * records / count);
        const unsigned words = dictionary.getTotalWordCount(record);
        positions.append(CursorPosition::at(record, static_cast<quint16>(random() % words)));
    }
    std::shuffle(positions.begin(), positions.end(), random);
    return positions;
}

QByteArrayList sampleWords(QtDictionary& dictionary, int count)
{
    QByteArrayList words;
    for (const CursorPosition position : samplePositions(dictionary, count))
        words.append(QByteArray(dictionary.getWordAt(position)));
    return words;
}

} // namespace teskel::bench
