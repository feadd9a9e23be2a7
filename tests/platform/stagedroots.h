// SPDX-License-Identifier: MIT
#pragma once

#include "platform/storage/storageroots.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A mount table and a sysfs tree of a test's own.
class StagedRoots
{
public:
    StagedRoots() { write(QStringLiteral("mountinfo"), {}); }

    StorageRoots roots() const
    {
        return {_root.filePath(QStringLiteral("mountinfo")), _root.filePath(QStringLiteral("sys")),
                _root.filePath(QStringLiteral("dev"))};
    }

    /// Replaces the mount table.
    void setTable(const QByteArray& table) { write(QStringLiteral("mountinfo"), table); }

    /// Creates the disk `name` below sys/devices/`bus`, with its links.
    void addDisk(const QString& name, const QString& bus, bool removable)
    {
        const QString directory = bus + QLatin1String("/block/") + name;
        _disks[name] = directory;
        write(QLatin1String("sys/devices/") + directory + QLatin1String("/removable"),
              removable ? "1\n" : "0\n");
        linkClass(name, directory);
    }

    void addPartition(const QString& disk, const QString& name)
    {
        const QString directory = _disks[disk] + u'/' + name;
        _disks[name] = directory;
        write(QLatin1String("sys/devices/") + directory + QLatin1String("/partition"), "1\n");
        linkClass(name, directory);
    }

    /// Writes an attribute of a device, e.g. "device/type".
    void setAttribute(const QString& device, const QString& attribute, const QByteArray& value)
    {
        write(QLatin1String("sys/devices/") + _disks[device] + u'/' + attribute, value);
    }

    /// Makes `part` one of the devices that `device` is made of.
    void addSlave(const QString& device, const QString& part)
    {
        const QString slaves =
            QLatin1String("sys/devices/") + _disks[device] + QLatin1String("/slaves");
        QDir(_root.path()).mkpath(slaves);
        QFile::link(_root.filePath(QLatin1String("sys/devices/") + _disks[part]),
                    _root.filePath(slaves) + u'/' + part);
    }

    /// Gives `device` another name, "disk/by-label/CARD".
    void addDeviceName(const QString& name, const QString& device)
    {
        write(QLatin1String("dev/") + device, {});
        const QString link = _root.filePath(QLatin1String("dev/") + name);
        QDir().mkpath(QFileInfo(link).path());
        QFile::link(_root.filePath(QLatin1String("dev/") + device), link);
    }

    /// Makes `number` ("8:1") lead to `device`.
    void setNumber(const QString& device, const QString& number)
    {
        QDir(_root.path()).mkpath(QStringLiteral("sys/dev/block"));
        QFile::link(_root.filePath(QLatin1String("sys/devices/") + _disks[device]),
                    _root.filePath(QLatin1String("sys/dev/block/") + number));
    }

    /// Opens the directory for other users, who could not look into a temporary one.
    void letOthersRead() const
    {
        QFile::setPermissions(_root.path(), QFile::permissions(_root.path()) | QFile::ReadGroup |
                                                QFile::ExeGroup | QFile::ReadOther |
                                                QFile::ExeOther);
    }

private:
    void write(const QString& name, const QByteArray& text)
    {
        const QString path = _root.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("the staged root cannot be written");
    }

    void linkClass(const QString& name, const QString& directory)
    {
        QDir(_root.path()).mkpath(QStringLiteral("sys/class/block"));
        QFile::link(_root.filePath(QLatin1String("sys/devices/") + directory),
                    _root.filePath(QLatin1String("sys/class/block/") + name));
    }

    QTemporaryDir _root;
    QHash<QString, QString> _disks;
};
