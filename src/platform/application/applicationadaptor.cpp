// SPDX-License-Identifier: MIT
#include "platform/application/applicationadaptor.h"

#include "platform/application/documentservice.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

// Lets a Wayland compositor believe that the window may come to the front.
void takeActivationToken(const QVariantMap& platformData)
{
    const QString token = platformData.value(u"activation-token"_s).toString();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(DocumentService* service)
    : QDBusAbstractAdaptor(service)
    , _service(service)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    takeActivationToken(platformData);
    emit _service->activateRequested();
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData)
{
    takeActivationToken(platformData);
    for (const QString& uri : uris) {
        const QUrl url(uri);
        if (url.isLocalFile())
            emit _service->openRequested(url.toLocalFile());
    }
}

void ApplicationAdaptor::ActivateAction(const QString& /*action*/,
                                        const QVariantList& /*parameter*/,
                                        const QVariantMap& platformData)
{
    Activate(platformData);
}

} // namespace teskel
