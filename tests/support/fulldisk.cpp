// SPDX-License-Identifier: MIT
#include "tests/support/fulldisk.h"

#include "tests/support/palmwriter.h"

#include <QByteArray>
#include <QFile>

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{

// Who is not root becomes the administrator of mounts of its own, under its own number.
bool unshareMounts()
{
    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (::unshare(CLONE_NEWNS) == 0)
        return true;
    const auto ownNumber = [](unsigned number) {
        return QByteArray::number(number) + ' ' + QByteArray::number(number) + " 1";
    };
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 &&
           writeFile(u"/proc/self/setgroups"_s, "deny") &&
           writeFile(u"/proc/self/uid_map"_s, ownNumber(user)) &&
           writeFile(u"/proc/self/gid_map"_s, ownNumber(group));
}

} // namespace

bool FullDisk::_hasOwnMounts = false;

bool FullDisk::enterOwnMounts()
{
    _hasOwnMounts =
        unshareMounts() && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return _hasOwnMounts;
}

FullDisk::FullDisk()
    : _isMounted(_hasOwnMounts &&
                 ::mount("teskel-test", QFile::encodeName(_place.path()).constData(), "tmpfs", 0,
                         "size=64k") == 0)
{
}

FullDisk::~FullDisk()
{
    if (_isMounted)
        ::umount2(QFile::encodeName(_place.path()).constData(), MNT_DETACH);
}

bool FullDisk::fill(qint64 left) const
{
    struct statvfs space = {};
    if (!_isMounted || ::statvfs(QFile::encodeName(_place.path()).constData(), &space) != 0)
        return false;
    const auto free = static_cast<qint64>(space.f_bavail) * static_cast<qint64>(space.f_bsize);
    return free >= left && writeFile(path(u"filling"_s), QByteArray(free - left, 'x'));
}

} // namespace teskel::test
