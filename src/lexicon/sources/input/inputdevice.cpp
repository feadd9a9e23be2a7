// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/inputdevice.h"

#include <algorithm>

namespace teskel
{

qint64 InputDevice::readData(char* data, qint64 maxSize)
{
    if (isBeyondLimit())
        return -1;
    if (_handedOver == _piece.size()) {
        _handedOver = 0;
        if (!_reason.empty() || !_input.readNext(_piece, _reason)) {
            _piece.clear();
            return -1;
        }
        if (_look && !_look(_piece)) {
            _piece.clear();
            return -1;
        }
    }
    const size_t size =
        std::min(static_cast<size_t>(std::max<qint64>(maxSize, 0)), _piece.size() - _handedOver);
    _piece.copy(data, size, _handedOver);
    for (size_t place = 0; place < size && _bytesRead + place < _blankBytes; ++place)
        data[place] = data[place] == '\n' ? '\n' : ' ';
    _references += static_cast<uint64_t>(std::count(data, data + size, '&'));
    _handedOver += size;
    _bytesRead += size;
    _isEnd = _piece.empty();
    return static_cast<qint64>(size);
}

} // namespace teskel
