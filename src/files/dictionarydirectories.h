// SPDX-License-Identifier: MIT
#pragma once

#include <QFileInfoList>
#include <QList>
#include <QString>

namespace teskel
{

/// A place where dictionary files may lie; it need not exist.
struct DictionaryDirectory {
    QString path;
    bool removable = false;
};

/// The dictionary directories of this moment: the internal one first, unless `removableOnly`, then
/// one for each removable file system in the platform's order.
///
/// The internal one is "teskel" below the directory that QPEDIR names, "/teskel" when it is unset.
QList<DictionaryDirectory> dictionaryDirectories(bool removableOnly);

/// The entries of `directory` named "*.PDB", in name order without regard to case.
///
/// Directories and links of that name are entries too; hidden ones and dangling links are not. The
/// paths are absolute. A missing directory gives an empty list.
QFileInfoList dictionaryEntries(const QString& directory);

} // namespace teskel
