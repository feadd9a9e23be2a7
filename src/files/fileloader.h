// SPDX-License-Identifier: MIT
#pragma once

#include "files/qteskelfileinfo.h"

#include <QList>
#include <QString>

/// Finds the installed dictionary files.
///
/// Only directories are read, never file contents. Made for one question: create it, call
/// getFileList() once, keep the list.
class FileLoader
{
public:
    /// Scans the dictionary directories and returns what was found: the internal files first, then
    /// those of each card, each directory in name order without regard to case.
    ///
    /// A file of the same name in two places is listed for each. Nothing is reported for places
    /// that do not exist.
    /// @param removableOnly leaves internal storage out
    QList<QTeskelFileInfo> getFileList(bool removableOnly);

    /// Appends the "*.PDB" entries of `directory` to the list, each tagged with `removable`.
    ///
    /// Symbolic links count on removable media only.
    void append(const QString& directory, bool removable);

private:
    QList<QTeskelFileInfo> _fileList;
};
