// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace teskel::test
{

/// Writes a packed stream bit by bit, most significant bit first.
class BitWriter
{
public:
    /// Appends the low `width` bits of `value`, 0 to 32.
    BitWriter& put(quint32 value, int width)
    {
        for (int bit = width - 1; bit >= 0; --bit)
            putBit((value >> bit & 1) != 0);
        return *this;
    }
    /// Appends a code written as '0' and '1'.
    BitWriter& put(const char* digits)
    {
        for (; *digits != '\0'; ++digits)
            putBit(*digits == '1');
        return *this;
    }
    /// The bytes so far, the last one filled up with zeros.
    [[nodiscard]] QByteArray bytes() const { return _bytes; }

private:
    void putBit(bool isSet)
    {
        if (_free == 0) {
            _bytes.append('\0');
            _free = 8;
        }
        --_free;
        if (isSet)
            _bytes.back() = static_cast<char>(static_cast<quint8>(_bytes.back()) | 1U << _free);
    }

    QByteArray _bytes;
    int _free = 0;
};

} // namespace teskel::test
