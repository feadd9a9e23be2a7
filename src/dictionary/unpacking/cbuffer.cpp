// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cbuffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace
{
constexpr long maxSize = std::numeric_limits<qint32>::max();
constexpr long maxGrownSize = 64L << 20;
} // namespace

bool CBuffer::OpenMemory(const void* data, long size, EOpenMode mode)
{
    _memory.clear();
    _isOwned = false;
    _position = 0;
    // One pointer serves both modes; in read mode only PutByteAt() writes through it.
    _data = static_cast<unsigned char*>(const_cast<void*>(data));
    _size = data ? static_cast<qint32>(std::clamp(size, 0L, maxSize)) : 0;
    _mode = mode;
    return true;
}

bool CBuffer::Open(CBuffer* source, long size)
{
    const long largest = std::max(source->Size() - source->Tell(), maxGrownSize);
    const bool isPossible = size >= 0 && size <= largest;
    // Apart from this buffer, which may itself be the source.
    std::vector<unsigned char> bytes(isPossible ? static_cast<std::size_t>(size) : 0);
    const long count = isPossible ? source->Read(bytes.data(), size) : 0;
    OpenMemory(nullptr, 0, Read_Mode);
    _isOwned = isPossible;
    _memory = std::move(bytes);
    _data = _memory.data();
    _size = static_cast<qint32>(_memory.size());
    return isPossible && count == size;
}

long CBuffer::Read(void* target, long size)
{
    if (_mode != Read_Mode)
        return 0;
    const long count = std::min(size, long{_size} - _position);
    if (count <= 0)
        return 0;
    std::memcpy(target, _data + _position, static_cast<std::size_t>(count));
    _position += static_cast<qint32>(count);
    return count;
}

int CBuffer::GetC()
{
    if (_position >= _size)
        return -1;
    return _data[_position++];
}

void CBuffer::Seek(long offset, ESeekMode mode)
{
    qint64 position = std::clamp(offset, -maxSize, maxSize);
    if (mode == FromPosition)
        position += _position;
    else if (mode == FromEnd)
        position += _size;
    position = std::clamp<qint64>(position, 0, maxSize);
    if (position > _size) {
        if (_isOwned && position <= maxGrownSize) {
            _memory.resize(static_cast<std::size_t>(position));
            _data = _memory.data();
            _size = static_cast<qint32>(position);
        } else {
            position = _size;
        }
    }
    _position = static_cast<qint32>(position);
}

bool CBuffer::Write(const void* byte)
{
    if (_mode != Write_Mode || _position >= _size)
        return false;
    _data[_position++] = *static_cast<const unsigned char*>(byte);
    return true;
}

bool CBuffer::GetByteAt(void* byte, long index) const
{
    if (index < 0 || index >= _position)
        return false;
    *static_cast<unsigned char*>(byte) = _data[index];
    return true;
}

bool CBuffer::PutByteAt(const void* byte, long index)
{
    if (index < 0 || index >= _position)
        return false;
    _data[index] = *static_cast<const unsigned char*>(byte);
    return true;
}

quint8 CBuffer::getbyte()
{
    return static_cast<quint8>(GetC() & 0xFF);
}

quint16 CBuffer::getword()
{
    const quint16 low = getbyte();
    return static_cast<quint16>(low | getbyte() << 8);
}

quint32 CBuffer::getlongword()
{
    const quint32 low = getword();
    return low | quint32{getword()} << 16;
}
