// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

namespace teskel
{

class DocumentService;

/// The interface org.freedesktop.Application of a document service.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(DocumentService* service);

public slots:
    void Activate(const QVariantMap& platformData);
    /// Opens the local files among `uris`; others are passed over.
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// The desktop entry names no actions.
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    DocumentService* _service;
};

} // namespace teskel
