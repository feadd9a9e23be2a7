// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstring>

namespace teskel
{

/// The output of a decoder, which also is the text that matches copy from. Never written past its
/// end.
class OutputWindow
{
public:
    OutputWindow(unsigned char* data, unsigned capacity)
        : _data(data)
        , _capacity(capacity)
    {
    }

    [[nodiscard]] bool isFull() const { return _position == _capacity; }
    /// Bytes that may still be written.
    [[nodiscard]] unsigned room() const { return _capacity - _position; }
    [[nodiscard]] unsigned position() const { return _position; }

    /// Writes a byte; the window must not be full.
    void putLiteral(unsigned byte) { _data[_position++] = static_cast<unsigned char>(byte); }

    /// Copies `length` bytes that begin `distance` back, as far as there is room.
    /// @param line  identifies the caller in the warning about a start before the output
    void putMatch(unsigned distance, unsigned length, int line)
    {
        length = std::min(length, _capacity - _position);
        if (distance > _position) [[unlikely]] {
            putWrapped(static_cast<int>(_position) - static_cast<int>(distance), length, line);
            return;
        }
        unsigned char* target = _data + _position;
        const unsigned char* source = target - distance;
        _position += length;
        if (_capacity - _position >= copyMargin) [[likely]] {
            copyRoomily(target, distance, length);
        } else {
            for (const unsigned char* end = target + length; target < end; ++target, ++source)
                *target = *source;
        }
    }

    /// For bulk work: the bytes themselves, of which capacity() may be written.
    [[nodiscard]] unsigned char* data() { return _data; }
    [[nodiscard]] unsigned capacity() const { return _capacity; }
    void setPosition(unsigned position) { _position = position; }

    /// Bytes beyond a match that copyRoomily() may write.
    static constexpr unsigned copyMargin = 16;

    /// Copies a match within memory that has room for copyMargin more bytes, which it spoils.
    static void copyRoomily(unsigned char* target, unsigned distance, unsigned length)
    {
        const unsigned char* source = target - distance;
        if (distance >= 8) [[likely]] {
            // Few matches are longer than the first two.
            std::memcpy(target, source, 8);
            std::memcpy(target + 8, source + 8, 8);
            for (unsigned copied = 16; copied < length; copied += 8)
                std::memcpy(target + copied, source + copied, 8);
        } else if (distance == 1) {
            std::memset(target, *source, length);
        } else {
            for (unsigned i = 0; i < length; ++i)
                target[i] = source[i];
        }
    }

private:
    void putWrapped(int source, unsigned length, int line);

    unsigned char* _data;
    unsigned _capacity;
    unsigned _position = 0;
};

} // namespace teskel
