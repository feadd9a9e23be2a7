// SPDX-License-Identifier: MIT
#include "platform/wholefile.h"

#include "platform/boundedread.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

constexpr int mostBackups = 100;

bool makeDirectory(const QString& path)
{
    const QFileInfo directory(path);
    if (directory.isDir())
        return true;
    const QDir parent = directory.dir();
    return QDir().mkpath(parent.path()) &&
           parent.mkdir(directory.fileName(),
                        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

// A disk that fills up takes a part of the bytes first, and says why only when asked for the rest.
bool writeAll(QFileDevice& file, const QByteArray& text)
{
    for (qint64 done = 0; done < text.size();) {
        const qint64 written = file.write(text.constData() + done, text.size() - done);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

// Returns what the link at `path` says, seen from where it stands, or nothing when there is no
// link.
QByteArray linkedPath(const QByteArray& path, const QByteArray& directory)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t size = ::readlink(path.constData(), text.data(), text.size());
    if (size <= 0)
        return {};
    const QByteArray linked(text.data(), size);
    return linked.startsWith('/') ? linked : directory + '/' + linked;
}

// Returns the file that `path` stands for, through all links, also where that file or directories
// on the way to it are still missing; or nothing when that cannot be told: a link that was taken
// for a file would be replaced.
QByteArray linkedFile(QByteArray path, int mostLinks)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                           &std::free);
    if (real)
        return real.get();
    if (errno != ENOENT || path.isEmpty())
        return {};
    const qsizetype slash = path.lastIndexOf('/');
    const QByteArray directory = slash < 0 ? "." : slash == 0 ? "/" : path.first(slash);
    if (const QByteArray linked = linkedPath(path, directory); !linked.isEmpty()) {
        if (mostLinks > 0)
            return linkedFile(linked, mostLinks - 1);
        errno = ELOOP;
        return {};
    }
    const QByteArray parent = linkedFile(directory, mostLinks);
    return parent.isEmpty() ? parent : parent + '/' + path.sliced(slash + 1);
}

QString linkedFile(const QString& path)
{
    constexpr int mostLinks = 40; // as the system follows
    return QFile::decodeName(linkedFile(QFile::encodeName(path), mostLinks));
}

// Returns why the open file cannot be made to last, or nothing.
QString makeLasting(int descriptor)
{
    int result = 0;
    do {
        result = ::fsync(descriptor);
    } while (result != 0 && errno == EINTR);
    // Some file systems know no such thing.
    return result == 0 || errno == EINVAL ? QString()
                                          : QString::fromLocal8Bit(std::strerror(errno));
}

// Makes the names in a directory last. Where that fails, they are no worse than without it.
void makeNamesLasting(const QString& directory)
{
    const int descriptor =
        ::open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    makeLasting(descriptor);
    ::close(descriptor);
}

} // namespace

// The system says itself whether there is no file: what merely cannot be looked at may be there.
Reading readWhole(const QString& path, qint64 most, QByteArray& text)
{
    // Opened so, a pipe or a device does not keep the reader waiting.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errno == ENOENT || errno == ENOTDIR ? Reading::Missing : Reading::Unreadable;
    QFile file;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle)) {
        if (!file.isOpen())
            ::close(descriptor);
        return Reading::Unreadable;
    }
    if (status.st_size > most)
        return Reading::TooLarge;
    const QByteArray read = readAtMost(file, most + 1);
    if (file.error() != QFileDevice::NoError)
        return Reading::Unreadable;
    if (read.size() > most)
        return Reading::TooLarge;
    text = read;
    return Reading::Read;
}

// QSaveFile::commit() takes no notice of bytes that could not be flushed or synchronised, it would
// put an empty file in place of the settings when the disk is full. So everything is on the disk
// before it is called.
QString replaceWhole(const QString& path, const QByteArray& text)
{
    const QString real = linkedFile(path);
    if (real.isEmpty() && errno != ENOTDIR)
        return QString::fromLocal8Bit(std::strerror(errno));
    const QString directory = QFileInfo(real).absolutePath();
    if (real.isEmpty() || !makeDirectory(directory))
        return u"the directory cannot be made"_s;
    QSaveFile file(real);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, text))
        return file.errorString();
    if (QString reason = makeLasting(file.handle()); !reason.isEmpty())
        return reason;
    if (!file.commit())
        return file.errorString();
    makeNamesLasting(directory);
    return {};
}

QString keepAside(const QString& path)
{
    const QString file = linkedFile(path);
    for (int number = 1; number <= mostBackups; ++number) {
        QString backup = file + ".backup"_L1 + QString::number(number);
        const QByteArray from = QFile::encodeName(file);
        const QByteArray to = QFile::encodeName(backup);
        if (::link(from.constData(), to.constData()) == 0)
            return backup;
        if (errno == EEXIST)
            continue;
        // The file systems of memory cards know no second names.
        if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) ==
            0)
            return backup;
        return {};
    }
    return {};
}

void takeBack(const QString& path, const QString& backup)
{
    const QByteArray file = QFile::encodeName(linkedFile(path));
    const QByteArray aside = QFile::encodeName(backup);
    struct stat present = {};
    struct stat kept = {};
    if (::stat(aside.constData(), &kept) != 0)
        return;
    if (::stat(file.constData(), &present) != 0) {
        if (errno == ENOENT)
            ::renameat2(AT_FDCWD, aside.constData(), AT_FDCWD, file.constData(), RENAME_NOREPLACE);
    } else if (present.st_dev == kept.st_dev && present.st_ino == kept.st_ino) {
        ::unlink(aside.constData());
    }
}

} // namespace teskel
