// SPDX-License-Identifier: MIT
#include "settings/wordhistory.h"

#include "platform/config.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

QString keyOf(qsizetype number)
{
    return u"List%1"_s.arg(number);
}

/// The word as an 8-bit string, which ends where the first character has no byte of its own.
QByteArray toBytes(const QString& word)
{
    const auto end = std::find_if(word.cbegin(), word.cend(),
                                  [](QChar character) { return character.toLatin1() == '\0'; });
    return QStringView(word.cbegin(), end).toLatin1();
}

} // namespace

QByteArrayList WordHistory::wordsIn(const Config& config)
{
    QByteArrayList words;
    for (qsizetype number = 0; number < most; ++number) {
        const QByteArray word = toBytes(config.readEntry(keyOf(number)));
        if (!word.isEmpty())
            words.append(word);
    }
    return words;
}

void WordHistory::load(const Config& config)
{
    _words = wordsIn(config);
    _seen = _words;
    _added.clear();
}

void WordHistory::write(Config& config)
{
    const QByteArrayList present = wordsIn(config);
    // A file without words has lost them; nobody takes any out.
    if (!present.isEmpty() && present != _seen) {
        _words = present;
        bool isChanged = false;
        for (const QByteArray& word : std::as_const(_added))
            isChanged = add(word) || isChanged;
        if (!isChanged)
            return;
    }
    for (qsizetype number = 0; number < _words.size(); ++number)
        config.writeEntry(keyOf(number), QString::fromLatin1(_words.at(number)));
}

bool WordHistory::add(const QString& word)
{
    const QByteArray bytes = toBytes(word);
    if (!add(bytes))
        return false;
    _added.removeAll(bytes);
    _added.append(bytes);
    if (_added.size() > most)
        _added.removeFirst();
    return true;
}

bool WordHistory::add(const QByteArray& word)
{
    if (_words.contains(word))
        return false;
    if (_words.size() >= most) {
        _words.prepend(word);
        _words.removeLast();
    } else {
        _words.append(word);
    }
    return true;
}

} // namespace teskel
