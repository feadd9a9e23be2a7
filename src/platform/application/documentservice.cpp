// SPDX-License-Identifier: MIT
#include "platform/application/documentservice.h"

namespace teskel
{

QString DocumentService::serviceName()
{
    return QStringLiteral("org.teskel.Teskel");
}

} // namespace teskel
