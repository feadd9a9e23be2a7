// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconfile.h"

#include <QFile>
#include <QFileInfo>

namespace teskel
{

bool openLexiconFile(QFile& file, const std::string& path, std::string& error)
{
    file.setFileName(QFile::decodeName(path.c_str()));
    const QFileInfo info(file.fileName());
    if (info.exists() && !info.isFile() && !info.isDir()) {
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
