// SPDX-License-Identifier: MIT
#include "tests/card/readingfailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace teskel::test
{

bool failReadsOf(const QString& path)
{
    const QString wanted = QFileInfo(path).canonicalFilePath();
    bool isOpen = false;
    const QDir descriptors(u"/proc/self/fd"_s);
    const QStringList numbers = descriptors.entryList(QDir::System | QDir::Files | QDir::Dirs);
    for (const QString& number : numbers) {
        if (QFile::symLinkTarget(descriptors.filePath(number)) != wanted)
            continue;
        // A descriptor that is open for writing alone refuses every read with EBADF.
        const int unreadable = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        isOpen = unreadable >= 0 && ::dup2(unreadable, number.toInt()) >= 0;
        ::close(unreadable);
    }
    return isOpen;
}

} // namespace teskel::test
