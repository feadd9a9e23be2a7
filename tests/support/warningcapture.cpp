// SPDX-License-Identifier: MIT
#include "tests/support/warningcapture.h"

namespace teskel::test
{

namespace
{
WarningCapture* innermost = nullptr;
} // namespace

WarningCapture::WarningCapture()
    : _outer(innermost)
    , _previous(qInstallMessageHandler(receive))
{
    innermost = this;
}

WarningCapture::~WarningCapture()
{
    innermost = _outer;
    qInstallMessageHandler(_previous);
}

int WarningCapture::count(const QString& part) const
{
    return static_cast<int>(_messages.filter(part).size());
}

void WarningCapture::receive(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg)
        innermost->_messages.append(text);
    else if (innermost->_previous)
        innermost->_previous(type, context, text);
}

} // namespace teskel::test
