// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

/// A cursor over a block of bytes, borrowed or its own.
class CBuffer
{
public:
    enum EOpenMode { Read_Mode = 0, Write_Mode = 1 };
    enum ESeekMode { FromStart = 0, FromPosition = 1, FromEnd = 2 };

    CBuffer() = default;
    Q_DISABLE_COPY_MOVE(CBuffer)
    ~CBuffer() = default;

    /// Wraps `size` borrowed bytes, which must outlive the buffer. Always succeeds: a negative size
    /// is none. In write mode, and for PutByteAt(), the bytes must be writable.
    bool OpenMemory(const void* data, long size, EOpenMode mode);
    /// Reads `size` bytes of `source` into memory of its own, for reading. False when fewer came,
    /// and the rest is zeros. A negative size, or one above 64 MiB that `source` does not have,
    /// makes an empty buffer.
    bool Open(CBuffer* source, long size);

    /// Copies at most `size` of the bytes left; returns how many. 0 in write mode.
    long Read(void* target, long size);
    /// The next byte in either mode, or -1 at the end.
    int GetC();
    /// Moves the position, clamped at 0. Past the end own memory grows (by zero bytes, up to
    /// 64 MiB); otherwise the position clamps to the end.
    void Seek(long offset, ESeekMode mode);
    [[nodiscard]] long Tell() const { return _position; }
    /// Write mode: stores one byte and advances; false at the end of the block and in read mode.
    bool Write(const void* byte);
    /// Fetches a byte before the position; false elsewhere.
    bool GetByteAt(void* byte, long index) const;
    /// Changes a byte before the position, in either mode; false elsewhere.
    bool PutByteAt(const void* byte, long index);
    [[nodiscard]] long Size() const { return _size; }

    /// Little-endian numbers; the end of the data reads as 0xFF bytes.
    quint8 getbyte();
    quint16 getword();
    quint32 getlongword();

    [[nodiscard]] EOpenMode mode() const { return _mode; }
    /// The whole block, for bulk work.
    [[nodiscard]] const unsigned char* data() const { return _data; }
    [[nodiscard]] unsigned char* data() { return _data; }

private:
    qint32 _position = 0;
    unsigned char* _data = nullptr;
    EOpenMode _mode = Read_Mode;
    qint32 _size = 0;
    bool _isOwned = false;
    std::vector<unsigned char> _memory;
};
