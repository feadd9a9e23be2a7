// SPDX-License-Identifier: MIT
#include "tests/card/stagedcard.h"

#include "platform/storage/mounttable.h"
#include "tests/support/childprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <sched.h>
#include <sys/mount.h>

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{

constexpr qint64 imageSize = 4 << 20;

bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    return runToEnd(process, program, arguments).code == 0;
}

} // namespace

bool StagedCard::_hasNamespace = false;

bool StagedCard::enterOwnNamespace()
{
    _hasNamespace = unshare(CLONE_NEWNS) == 0 &&
                    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return _hasNamespace;
}

StagedCard::StagedCard()
{
    QDir(_home.path()).mkdir(u"card"_s);
    _isReal = _hasNamespace && makeImage() && insert();
    if (_isReal) {
        _stage.addDisk(QFileInfo(mountedDevice()).fileName(), u"pci0000:00/usb1/1-1"_s, false);
        return;
    }
    _stage.addDisk(u"sdz"_s, u"pci0000:00/usb1/1-1"_s, false);
    (void)insert();
}

StagedCard::~StagedCard()
{
    (void)pull(true);
}

bool StagedCard::makeImage() const
{
    QFile file(image());
    return file.open(QIODevice::WriteOnly) && file.resize(imageSize) &&
           run(u"/sbin/mkfs.ext2"_s, {u"-q"_s, u"-F"_s, image()});
}

bool StagedCard::insert()
{
    if (_hasNamespace && QFile::exists(image())) {
        return run(u"mount"_s, {u"-o"_s, u"loop"_s, image(), path()});
    }
    _stage.setTable("36 25 8:17 / " + QFile::encodeName(path()) + " rw - ext2 /dev/sdz rw\n");
    return true;
}

bool StagedCard::pull(bool lazily)
{
    if (_isReal) {
        return run(u"umount"_s, lazily ? QStringList{u"-l"_s, path()} : QStringList{path()});
    }
    _stage.setTable({});
    return QDir(path()).removeRecursively();
}

QString StagedCard::dictionaries() const
{
    return path() + QLatin1String("/QtPalmtop/teskel");
}

StorageRoots StagedCard::roots() const
{
    StorageRoots roots = _stage.roots();
    if (_isReal)
        roots.mountInfo = u"/proc/self/mountinfo"_s;
    return roots;
}

QString StagedCard::mountedDevice() const
{
    QFile table(u"/proc/self/mountinfo"_s);
    if (!table.open(QIODevice::ReadOnly))
        return {};
    const QList<teskel::Mount> mounts = teskel::parseMountTable(table.readAll());
    for (const teskel::Mount& mount : mounts) {
        if (mount.path == path())
            return mount.source;
    }
    return {};
}

} // namespace teskel::test
