// SPDX-License-Identifier: MIT
#include "tests/dictionary/plaindictionary.h"

namespace teskel::test
{

namespace
{
QByteArray fold(QByteArray text)
{
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7))
            c = static_cast<char>(byte - 0x20);
    }
    return text;
}

int compare(const QByteArray& text, const QByteArray& word, bool prefix)
{
    const QByteArray left = fold(text);
    const QByteArray right = fold(word);
    return prefix ? qstrncmp(left.constData(), right.constData(), static_cast<size_t>(right.size()))
                  : qstrcmp(left.constData(), right.constData());
}

// The text up to a NUL or the end; `at` moves past it.
QByteArray take(const QByteArray& bytes, qsizetype& at)
{
    QByteArray text(bytes.mid(at).constData()); // a QByteArray's bytes end with a NUL
    at += text.size() + 1;
    return text;
}
} // namespace

PlainDictionary::PlainDictionary(const QByteArray& index,
                                 const QList<std::optional<QByteArray>>& records)
{
    for (qsizetype at = 0; at < index.size();) {
        const QByteArray key = take(index, at);
        if (key.isEmpty())
            break;
        _keys.append(key);
    }
    for (const std::optional<QByteArray>& text : records) {
        QList<Entry> entries;
        for (qsizetype at = 0; text && at < text->size();) {
            const QByteArray headword = take(*text, at);
            if (headword.isEmpty())
                break;
            entries.append({headword, take(*text, at)});
        }
        _records.append(entries);
    }
}

int PlainDictionary::count(int record) const
{
    return static_cast<int>(_records.at(record).size());
}

QByteArray PlainDictionary::word(CursorPosition position) const
{
    return _records.at(position.compoundPosition.recordNumber)
        .at(position.compoundPosition.wordNumber)
        .word;
}

QByteArray PlainDictionary::article(CursorPosition position) const
{
    return _records.at(position.compoundPosition.recordNumber)
        .at(position.compoundPosition.wordNumber)
        .article;
}

bool PlainDictionary::isValid(CursorPosition position) const
{
    return position.compoundPosition.recordNumber < _records.size() &&
           position.compoundPosition.wordNumber < count(position.compoundPosition.recordNumber);
}

CursorPosition PlainDictionary::findWord(const QByteArray& word, bool prefix) const
{
    int below = 0;
    while (below < _keys.size() && compare(_keys.at(below), word, prefix) < 0)
        ++below;
    CursorPosition position = CursorPosition::at(static_cast<quint16>(qMax(0, below - 1)), 0);
    while (isValid(position)) {
        const int order = compare(this->word(position), word, prefix);
        if (order == 0)
            return position;
        if (order > 0)
            break;
        position = next(position);
    }
    return CursorPosition::invalid();
}

CursorPosition PlainDictionary::next(CursorPosition position) const
{
    auto& [record, entry] = position.compoundPosition;
    if (entry != count(record) - 1)
        ++entry;
    else if (record == _records.size() - 1)
        return CursorPosition::invalid();
    else
        position = CursorPosition::at(static_cast<quint16>(record + 1), 0);
    return position;
}

CursorPosition PlainDictionary::previous(CursorPosition position) const
{
    auto& [record, entry] = position.compoundPosition;
    if (entry != 0) {
        --entry;
    } else if (record == 0) {
        return CursorPosition::invalid();
    } else {
        --record;
        entry = static_cast<quint16>(count(record) - 1);
    }
    return position;
}

CursorPosition PlainDictionary::move(CursorPosition position, int delta) const
{
    if (!isValid(position))
        return position;
    for (; delta > 0 && !position.isInvalid(); --delta)
        position = next(position);
    for (; delta < 0 && !position.isInvalid(); ++delta)
        position = previous(position);
    return position;
}

} // namespace teskel::test
