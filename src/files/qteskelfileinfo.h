// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfo>
#include <QString>

/// One discovered dictionary file, copied freely.
struct QTeskelFileInfo {
    QFileInfo _fileInfo; ///< the file, with an absolute directory; empty when default constructed
    bool _removable = false; ///< whether it lies on a card rather than in internal storage

    /// The name shown to the user: the file name up to its first dot.
    QString displayName() const { return _fileInfo.baseName(); }
    /// The absolute path by which the file is opened; links are not resolved.
    QString path() const { return _fileInfo.absoluteFilePath(); }
};
