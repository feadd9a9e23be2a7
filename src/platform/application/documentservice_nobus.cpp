// SPDX-License-Identifier: MIT
// The service of a build without D-Bus.
#include "platform/application/documentservice.h"

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

bool DocumentService::isStartedByBus()
{
    return false;
}

void DocumentService::start() {}

void DocumentService::startAndReceive() {}

void DocumentService::connected() {}

} // namespace teskel
