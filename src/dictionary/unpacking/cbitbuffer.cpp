// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cbitbuffer.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"

#include <algorithm>

void CBitBuffer::Attach(CBuffer* input, CFileHeader* header)
{
    _input = input;
    _header = header;
}

void CBitBuffer::InitGetBits()
{
    _compressedSize = _header->compressedSize();
    _inputStart = _input->Tell();
    _window =
        teskel::BitWindow(_input->data() + _inputStart,
                          static_cast<std::size_t>(_input->Size() - _inputStart), _compressedSize);
    settle();
}

unsigned CBitBuffer::GetBits(int n)
{
    _window.refill();
    const unsigned value = _window.take(static_cast<unsigned>(n));
    settle();
    return value;
}

void CBitBuffer::FillBuf(int n)
{
    _window.refill();
    _window.drop(static_cast<unsigned>(n));
    settle();
}

void CBitBuffer::setWindow(const teskel::BitWindow& window)
{
    _window = window;
    settle();
}

void CBitBuffer::settle()
{
    constexpr quint64 bytesAhead = 2;
    const quint64 fetched =
        std::min<quint64>(bytesAhead + (_window.consumed() + 7) / 8, _compressedSize);
    _header->setCompressedSize(_compressedSize - static_cast<quint32>(fetched));
    // To the input's end where the header claims more than there is: beyond it, an input that owns
    // its memory would grow, away from under the window.
    const auto position = static_cast<long>(_inputStart + static_cast<qint64>(fetched));
    _input->Seek(std::min(position, _input->Size()), CBuffer::FromStart);
}
