// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

class Dictionary;

namespace teskel
{

/// The words that a person may ask for with `text`, as headwords are written (inLatin1()), in the
/// order in which to try them.
///
/// As it stands, blanks included, which lead on to further words; then without blanks at its ends.
/// Pasted text comes with line ends and tabs: control characters count as a blank, and a text that
/// holds them is tried without blanks at its ends alone. NUL stays, which no headword has.
QStringList askedWords(const QString& text);

/// How many leading characters of `text` a lexicon can hold: those of Latin-1 except NUL.
qsizetype lexiconLength(const QString& text);

/// The bytes by which a lexicon knows `text`.
///
/// Nothing if `text` has a character that no headword can have. Such a text equals no headword and
/// begins none; replacing or dropping the character would find a word that was not asked for.
std::optional<QByteArray> toLexiconBytes(const QString& text);

/// Removes punctuation and white space from both ends of `text`; the inside is never touched.
QString withoutOuterPunctuation(const QString& text);

/// The part of `text` under which `dictionary` knows a word, or nothing.
///
/// That is the whole text, composed, if it is a word of the dictionary as headwords are written
/// (inLatin1()), else its longest beginning with which some word begins, written so; the last
/// beginning tried is the empty one.
std::optional<QString> knownPart(Dictionary& dictionary, const QString& text);

} // namespace teskel
