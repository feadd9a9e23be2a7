// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/outputwindow.h"

#include "base/assertion.h"
#include "dictionary/unpacking/arjformat.h"

namespace teskel
{

// Only a damaged stream points before its own start. Bytes that were not written read as 0.
void OutputWindow::putWrapped(int source, unsigned length, int line)
{
    verify(false, "FALSE", "decode.cpp", line);
    source += arj::decompressBufferSize;
    for (; length > 0; --length, ++source, ++_position) {
        const bool isWritten = source >= 0 && source < static_cast<int>(_position);
        _data[_position] = isWritten ? _data[source] : static_cast<unsigned char>(0);
    }
}

} // namespace teskel
