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
    /// How much was handed over, unpacked: its bytes, and for each "&" in it what
    /// countReferencesAs() tells.
    uint64_t amountRead() const { return _bytesRead + _references * _referenceBytes; }
    /// Reading fails when it comes to that amount: what is read then is out of measure.
    void setLimit(uint64_t amount) { _limit = amount; }
    bool isBeyondLimit() const { return amountRead() > _limit; }
    /// How many bytes a reference stands for.
    void countReferencesAs(uint64_t bytes) { _referenceBytes = bytes; }
    /// Shows the first bytes as blanks, those of line ends excepted.
    void blankOut(uint64_t bytes) { _blankBytes = bytes; }
    /// Calls `look` with each piece before it is handed over; when that returns false, reading
    /// fails.
    void watch(std::function<bool(std::string_view piece)> look) { _look = std::move(look); }
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
    uint64_t _references = 0; ///< "&" among them
    uint64_t _referenceBytes = 0;
    uint64_t _limit = UINT64_MAX;
    uint64_t _blankBytes = 0;
    std::function<bool(std::string_view piece)> _look;
    bool _isEnd = false;
    std::string _reason;
};

} // namespace teskel
