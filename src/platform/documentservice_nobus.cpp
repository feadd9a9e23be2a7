// SPDX-License-Identifier: MIT
// The service of a build without D-Bus.
#include "platform/documentservice.h"

namespace teskel
{

DocumentService::DocumentService(QObject* parent)
    : QObject(parent)
{
}

DocumentService::~DocumentService() = default;

QString DocumentService::serviceName()
{
    return QStringLiteral("org.teskel.Teskel");
}

void DocumentService::start() {}

void DocumentService::connected() {}

} // namespace teskel
