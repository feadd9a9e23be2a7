// SPDX-License-Identifier: MIT
#include "platform/application/documentservice.h"

using namespace Qt::StringLiterals;

namespace teskel
{

QString DocumentService::serviceName()
{
    return u"org.teskel.Teskel"_s;
}

} // namespace teskel
