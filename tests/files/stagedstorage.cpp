// SPDX-License-Identifier: MIT
#include "tests/files/stagedstorage.h"

#include "platform/storage/storageinfo.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

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
    roots.mountInfo = path(u"mountinfo"_s);
    roots.sysfs = path(u"sys"_s);
    writeMountTable();
    StorageInfo::setRoots(roots);
    qputenv("QPEDIR", path(u"qpe"_s).toUtf8());
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
    QString directory = path(u"qpe/teskel"_s);
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
    const QString device = path(u"sys/class/block/sd"_s + name);
    QDir().mkpath(device);
    writeFile(device + u"/removable"_s, removable ? "1\n" : "0\n");
    _mounted.append(name);
    writeMountTable();
    QString directory = path(name + u"/QtPalmtop/teskel"_s);
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
        const QString line = u"%1 1 8:%1 / %2 rw - vfat /dev/sd%3 rw\n"_s;
        table += line.arg(QString::number(number + 20), path(name), name).toUtf8();
    }
    writeFile(path(u"mountinfo"_s), table);
}

QString StagedStorage::addFile(const QString& directory, const QString& name)
{
    QString file = QDir(directory).filePath(name);
    writeFile(file, QByteArray());
    return file;
}
