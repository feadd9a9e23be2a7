// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace teskel
{

/// Keeps Qt from finding plug-ins while it lives; those that it has found already stay in use.
///
/// For what reads a PNG of Qt's own: Qt would load the plug-ins for every other format of pictures
/// first. What needs one of them later finds it.
class PluginPause
{
public:
    PluginPause() { QCoreApplication::setLibraryPaths({}); }
    ~PluginPause() { QCoreApplication::setLibraryPaths(_paths); }
    Q_DISABLE_COPY_MOVE(PluginPause)

private:
    QStringList _paths = QCoreApplication::libraryPaths();
};

} // namespace teskel
