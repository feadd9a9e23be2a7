// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

#include <optional>

namespace teskel::test
{

/// A dictionary in memory that searches and moves word by word and key by key, by the simplest code
/// that gives the required results.
class PlainDictionary
{
public:
    /// @param index    bytes of the word index
    /// @param records  texts of the word records; none: it cannot be read
    PlainDictionary(const QByteArray& index, const QList<std::optional<QByteArray>>& records);

    [[nodiscard]] int count(int record) const;
    [[nodiscard]] QByteArray word(CursorPosition position) const;
    [[nodiscard]] QByteArray article(CursorPosition position) const;
    [[nodiscard]] bool isValid(CursorPosition position) const;
    [[nodiscard]] CursorPosition findWord(const QByteArray& word, bool prefix) const;
    [[nodiscard]] CursorPosition move(CursorPosition position, int delta) const;

private:
    CursorPosition next(CursorPosition position) const;
    CursorPosition previous(CursorPosition position) const;

    QByteArrayList _keys;
    struct Entry {
        QByteArray word;
        QByteArray article;
    };
    QList<QList<Entry>> _records;
};

} // namespace teskel::test
