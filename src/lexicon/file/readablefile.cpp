// SPDX-License-Identifier: MIT
#include "lexicon/file/readablefile.h"

#include <QFile>

namespace teskel
{

bool openReadable(QFile& file)
{
    char byte = 0;
    return file.open(QIODevice::ReadOnly) && file.read(&byte, 1) >= 0;
}

std::string whyUnreadable(const QFile& file, const std::string& path)
{
    return "cannot read " + path + ": " + file.errorString().toStdString();
}

} // namespace teskel
