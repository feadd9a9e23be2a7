// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/bitwindow.h"

class CBuffer;
class CFileHeader;

/// Reads a member's packed bits and keeps count of its packed bytes.
///
/// As many bytes are fed as the header's compressed size says, which is counted down; after that
/// zero bytes. The count is kept as if 16 bits were held ahead, however many really are.
class CBitBuffer
{
public:
    /// Binds the reader to input and header, both borrowed.
    void Attach(CBuffer* input, CFileHeader* header);
    /// Starts at the input's position with 16 bits held.
    void InitGetBits();
    /// The next `n` bits, 0 to 16, most significant first.
    unsigned GetBits(int n);
    /// Passes over `n` bits.
    void FillBuf(int n);

    /// For bulk work: take a copy of the window, read from it, hand it back. Handing it back brings
    /// the header's count and the input's position up to date.
    [[nodiscard]] const teskel::BitWindow& window() const { return _window; }
    void setWindow(const teskel::BitWindow& window);

private:
    void settle();

    CBuffer* _input = nullptr;
    CFileHeader* _header = nullptr;
    teskel::BitWindow _window;
    quint32 _compressedSize = 0; // as it was at the start
    qint64 _inputStart = 0;
};
