// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/qtdictionary.h"

#include <QByteArrayList>
#include <QList>

namespace teskel::bench
{

/// Opens `path`; ends the program with a message when that fails.
void openOrDie(QtDictionary& dictionary, const QString& path);

/// Number of entries of an open dictionary.
[[nodiscard]] qint64 entryCount(QtDictionary& dictionary);

/// `count` positions spread evenly over the records of an open dictionary, in an order that jumps
/// about but is the same in every run.
[[nodiscard]] QList<CursorPosition> samplePositions(QtDictionary& dictionary, int count);

/// The headwords at samplePositions().
[[nodiscard]] QByteArrayList sampleWords(QtDictionary& dictionary, int count);

} // namespace teskel::bench
