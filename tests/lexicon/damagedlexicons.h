// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/dictionarywriter.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace teskel::test
{

/// A damaged lexicon and what the checks say of it.
struct DamagedLexicon {
    QByteArray name; ///< the damage
    QByteArray bytes;
    QStringList findings;
};

/// At least one for each check.
QList<DamagedLexicon> damagedLexicons();

/// A lexicon of two word records: ant, Bee; cat, dog.
DictionaryWriter soundLexicon();
QByteArray soundBytes();

/// Position of record `index` in the file.
qsizetype offsetOf(const QByteArray& bytes, int index);
QByteArray withByte(QByteArray bytes, qsizetype position, char value);

/// Two word records; the records of the given numbers have no bytes.
QByteArray withEmptyRecords(const QList<int>& numbers);

/// No word record.
QByteArray withDescription(const QByteArray& text);

} // namespace teskel::test
