// SPDX-License-Identifier: MIT
#include "tests/files/stagedstorage.h"

#include "platform/storage/storageinfo.h"

#include <QDir>
#include <QFile>

namespace
{

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot stage %s", qPrintable(path));
}

} // namespace

StagedStorage::StagedStorage()
    : _rootsBefore(StorageInfo::roots())
{
    StorageRoots roots;
    roots.mountInfo = path(QStringLiteral("mountinfo"));
    roots.sysfs = path(QStringLiteral("sys"));
    writeMountTable();
    StorageInfo::setRoots(roots);
    qputenv("QPEDIR", path(QStringLiteral("qpe")).toUtf8());
}

StagedStorage::~StagedStorage()
{
    StorageInfo::setRoots(_rootsBefore);
    qunsetenv("QPEDIR");
}

QString StagedStorage::path(const QString& relative) const
{
    return _root.filePath(relative);
}

QString StagedStorage::internalDirectory() const
{
    const QString directory = path(QStringLiteral("qpe/teskel"));
    QDir().mkpath(directory);
    return directory;
}

QString StagedStorage::addCard(const QString& name)
{
    return mount(name, true);
}

QString StagedStorage::addFixedDisk(const QString& name)
{
    return mount(name, false);
}

QString StagedStorage::mount(const QString& name, bool removable)
{
    const QString device = path(QStringLiteral("sys/class/block/sd") + name);
    QDir().mkpath(device);
    writeFile(device + QStringLiteral("/removable"), removable ? "1\n" : "0\n");
    _mounted.append(name);
    writeMountTable();
    const QString directory = path(name + QStringLiteral("/QtPalmtop/teskel"));
    QDir().mkpath(directory);
    return directory;
}

void StagedStorage::unmount(const QString& name)
{
    _mounted.removeAll(name);
    writeMountTable();
}

void StagedStorage::writeMountTable()
{
    QByteArray table;
    for (qsizetype number = 0; number < _mounted.size(); ++number) {
        const QString& name = _mounted.at(number);
        const QString line = QStringLiteral("%1 1 8:%1 / %2 rw - vfat /dev/sd%3 rw\n");
        table += line.arg(QString::number(number + 20), path(name), name).toUtf8();
    }
    writeFile(path(QStringLiteral("mountinfo")), table);
}

QString StagedStorage::addFile(const QString& directory, const QString& name)
{
    const QString file = QDir(directory).filePath(name);
    writeFile(file, QByteArray());
    return file;
}
