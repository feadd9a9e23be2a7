// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"

bool QtDictionary::QtDictionaryIterator::isValid(CursorPosition position)
{
    const auto [recordNumber, wordNumber] = position.compoundPosition;
    return !position.isInvalid() && recordNumber < _dictionary->getWordRecordCount() &&
           wordNumber < _dictionary->getTotalWordCount(recordNumber);
}

bool QtDictionary::QtDictionaryIterator::setPosition(CursorPosition position)
{
    if (!isValid(position))
        return false;
    _position = position;
    return true;
}

CursorPosition QtDictionary::QtDictionaryIterator::begin()
{
    _position = CursorPosition::at(0, 0);
    return _position;
}

const char* QtDictionary::QtDictionaryIterator::getWord()
{
    return _dictionary->getWordOf(*this);
}

CursorPosition QtDictionary::QtDictionaryIterator::move(CursorPosition position, int delta)
{
    if (!isValid(position))
        return position;
    _position = delta >= 0 ? forward(position, delta) : backward(position, -qint64{delta});
    return _position;
}

// Both walks go record by record. A record that cannot be read, or has no entries, has no last
// entry at which a walk could leave it: the walk ends on a position in it that is not valid.
CursorPosition QtDictionary::QtDictionaryIterator::forward(CursorPosition position, qint64 steps)
{
    auto [recordNumber, wordNumber] = position.compoundPosition;
    while (steps > 0) {
        const unsigned short count = _dictionary->getTotalWordCount(recordNumber);
        const qint64 left = qint64{count} - 1 - wordNumber; // words after this one in its record
        if (steps <= left || left < 0)
            return CursorPosition::at(recordNumber, static_cast<quint16>(wordNumber + steps));
        if (recordNumber + 1 >= _dictionary->getWordRecordCount())
            return CursorPosition::invalid();
        steps -= left + 1;
        ++recordNumber;
        wordNumber = 0;
    }
    return CursorPosition::at(recordNumber, wordNumber);
}

CursorPosition QtDictionary::QtDictionaryIterator::backward(CursorPosition position, qint64 steps)
{
    auto [recordNumber, wordNumber] = position.compoundPosition;
    while (steps > wordNumber) {
        if (recordNumber == 0)
            return CursorPosition::invalid();
        steps -= wordNumber + 1;
        --recordNumber;
        wordNumber = static_cast<quint16>(_dictionary->getTotalWordCount(recordNumber) - 1);
    }
    return CursorPosition::at(recordNumber, static_cast<quint16>(wordNumber - steps));
}
