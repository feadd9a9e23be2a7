// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The address of one word of a dictionary.
///
/// Positions carry no reference to their dictionary and mean nothing after it was closed. A
/// default-constructed position is the invalid one, which stands for "no word".
struct CursorPosition {
    /// Both halves of a position.
    struct Compound {
        quint16 recordNumber = 0xFFFF; ///< word record, counting from 0
        quint16 wordNumber = 0xFFFF;   ///< entry within that record, counting from 0
    };
    Compound compoundPosition;

    /// The position as one number, the record in its low half; all bits set means "no word".
    [[nodiscard]] constexpr quint32 value() const
    {
        return quint32{compoundPosition.recordNumber} | quint32{compoundPosition.wordNumber} << 16;
    }

    /// The position whose value() is `value`.
    static constexpr CursorPosition fromValue(quint32 value)
    {
        return at(static_cast<quint16>(value & 0xFFFF), static_cast<quint16>(value >> 16));
    }

    /// Entry `wordNumber` of word record `recordNumber`.
    static constexpr CursorPosition at(quint16 recordNumber, quint16 wordNumber)
    {
        CursorPosition position;
        position.compoundPosition = {recordNumber, wordNumber};
        return position;
    }

    static constexpr CursorPosition invalid() { return {}; }

    /// Whether this is the invalid position. A position that is not may still lie outside a given
    /// dictionary: see DictionaryIterator::isValid().
    [[nodiscard]] constexpr bool isInvalid() const { return value() == 0xFFFFFFFF; }

    friend constexpr bool operator==(const CursorPosition& a, const CursorPosition& b)
    {
        return a.value() == b.value();
    }
};
