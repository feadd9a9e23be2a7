// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/inputfile.h"

#include <QIODevice>

#include <functional>
#include <string_view>

namespace teskel
{

/// An input for the classes of Qt that read from devices, from its beginning to its end.
class InputDevice : public QIODevice
{
public:
    /// `input` stands at its beginning and must outlive the device, which is open at once.
    explicit InputDevice(InputFile& input)
        : _input(input)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    bool atEnd() const override { return _isEnd; }
    /// How many bytes were handed over, unpacked.
    uint64_t bytesRead() const { return _bytesRead; }
    /// Reading fails when it comes to that many bytes: what is read then is out of measure.
    void setLimit(uint64_t bytes) { _limit = bytes; }
    bool isBeyondLimit() const { return _bytesRead > _limit; }
    /// Shows the first bytes as blanks, those of line ends excepted.
    void blankOut(uint64_t bytes) { _blankBytes = bytes; }
    /// Calls `look` with each piece before it is handed over.
    void watch(std::function<void(std::string_view piece)> look) { _look = std::move(look); }
    /// Why the input cannot be read; empty when it can.
    const std::string& reason() const { return _reason; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    InputFile& _input;
    std::string _piece;
    size_t _handedOver = 0; ///< bytes of the piece
    uint64_t _bytesRead = 0;
    uint64_t _limit = UINT64_MAX;
    uint64_t _blankBytes = 0;
    std::function<void(std::string_view piece)> _look;
    bool _isEnd = false;
    std::string _reason;
};

} // namespace teskel
