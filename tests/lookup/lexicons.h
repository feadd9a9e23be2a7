// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/dictionarywriter.h"

#include <QRegularExpression>
#include <QTest>

namespace teskel::test
{

/// Fails the running test at any warning but one that the test display prints by itself.
inline void failOnUnexpectedWarnings()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
}

/// Entries "w000", "w001", ... with the articles "article 000", ...; at most 1000.
inline QList<Entry> numberedEntries(int count)
{
    QList<Entry> entries;
    for (int number = 0; number < count; ++number) {
        const QByteArray digits = QByteArray::number(number).rightJustified(3, '0');
        entries.append(Entry("w" + digits, "article " + digits));
    }
    return entries;
}

/// The headword of entry `number` of numberedEntries().
inline QString numberedWord(int number)
{
    return QStringLiteral("w%1").arg(number, 3, 10, QLatin1Char('0'));
}

/// The headwords `first` to `last` of numberedEntries().
inline QStringList numberedWords(int first, int last)
{
    QStringList words;
    for (int number = first; number <= last; ++number)
        words.append(numberedWord(number));
    return words;
}

/// A few everyday words, then 50 numbered ones, then "zebra"; in dictionary order.
inline QList<Entry> everydayEntries()
{
    QList<Entry> entries{
        {"ant", "Ameise"},
        {"apple", "Apfel"},
        {"bear", "B\xE4r"},
        {"cat", "Katze"},
        {"dog", "Hund"},
        {"home", "1. Heim\n2. Zuhause"},
        {"house", "1. Haus"},
        {"houseboat", "Hausboot"},
        {"houses", "H\xE4user"},
        {"m\xFC"
         "esli",
         "M\xFCsli"},
    };
    entries += numberedEntries(50);
    entries.append(Entry("zebra", "Zebra"));
    return entries;
}

} // namespace teskel::test
