// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconfile.h"

#include <QFile>
#include <QFileInfo>

#include <linux/magic.h>
#include <sys/vfs.h>

namespace teskel
{

namespace
{

/// Whether a file, regular by its looks, is made up by the kernel when it is read, which it may let
/// wait for ever.
bool isMadeByKernel(const std::string& path)
{
    struct statfs status = {};
    if (::statfs(path.c_str(), &status) != 0)
        return false;
    const auto kind = static_cast<unsigned long>(status.f_type);
    return kind == PROC_SUPER_MAGIC || kind == SYSFS_MAGIC || kind == TRACEFS_MAGIC ||
           kind == DEBUGFS_MAGIC;
}

} // namespace

bool openLexiconFile(QFile& file, const std::string& path, std::string& error)
{
    file.setFileName(QFile::decodeName(path.c_str()));
    const QFileInfo info(file.fileName());
    if (info.exists() && !info.isDir() && (!info.isFile() || isMadeByKernel(path))) {
        error = "cannot read " + path + ": it is no regular file";
        return false;
    }
    if (info.isDir()) {
        error = "cannot read " + path + ": Is a directory";
        return false;
    }
    char byte = 0; // to read it tells what can be opened alone from what can be read
    if (file.open(QIODevice::ReadOnly) && file.read(&byte, 1) >= 0 && file.seek(0))
        return true;
    error = "cannot read " + path + ": " + file.errorString().toStdString();
    return false;
}

} // namespace teskel
