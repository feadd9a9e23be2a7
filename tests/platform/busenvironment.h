// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>

/// The environment of this program with `address` for the session bus.
inline QProcessEnvironment environmentWith(const QString& address)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    return environment;
}

/// The same, as that bus hands it on to what it starts.
inline QProcessEnvironment environmentMarkedBy(const QString& address)
{
    QProcessEnvironment environment = environmentWith(address);
    environment.insert(QStringLiteral("DBUS_STARTER_ADDRESS"), address);
    environment.insert(QStringLiteral("DBUS_STARTER_BUS_TYPE"), QStringLiteral("session"));
    return environment;
}
