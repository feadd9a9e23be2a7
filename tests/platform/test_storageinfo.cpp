// SPDX-License-Identifier: MIT
#include "platform/qcopchannel.h"
#include "platform/storage/mounttable.h"
#include "platform/storage/storageinfo.h"
#include "tests/platform/stagedroots.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class StorageInfoTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void removable_data();
    void removable();
    void listsDevicesInTableOrder();
    void leavesOutWhatIsNoDevice();
    void bindMountIsNotASecondCard();
    void secondMountOfADeviceIsNotASecondCard();
    void btrfsSubvolumeCounts();
    void coveredMountIsLeftOut();
    void hiddenMounts_data();
    void hiddenMounts();
    void hiddenMountOfADeviceGivesWayToAnother();
    void firstReachableMountOfADeviceCounts();
    void missingMountPointGivesWayToAnother();
    void forbiddenMountPointGivesWayToAnother();
    void deviceWithoutAReachableMountIsStillListed();
    void loopOfMountsEnds();
    void deviceGoesByItsOtherNames();
    void decodesEscapes_data();
    void decodesEscapes();
    void optionalFieldsAreSkipped();
    void fuseMountGoesByItsSource();
    void rootDeviceGoesByItsNumber();
    void mappedDeviceGoesByItsName();
    void encryptedCardIsRemovable();
    void encryptedDiskIsNot();
    void loopOfSlavesEnds();
    void missingRootsGiveNothing();
    void damagedTablesDoNoHarm();
    void followsTheCardChannel();
    void ownMachineCanBeRead();

private:
    QStringList paths() const;

    std::unique_ptr<StagedRoots> _staged;
};

namespace
{

QByteArray mount(const QByteArray& device, const QByteArray& root, const QByteArray& path,
                 const QByteArray& type, const QByteArray& source)
{
    return "36 35 " + device + ' ' + root + ' ' + path + " rw,noatime master:1 - " + type + ' ' +
           source + " rw\n";
}

// One line of a table whose mounts stand on each other.
QByteArray mountOn(int id, int parent, const QByteArray& path, const QByteArray& source)
{
    return QByteArray::number(id) + ' ' + QByteArray::number(parent) + " 8:16 / " + path +
           " rw,noatime - vfat " + source + " rw\n";
}

QStringList pathsOf(const QList<teskel::Mount>& mounts)
{
    QStringList paths;
    for (const teskel::Mount& mount : mounts)
        paths.append(mount.path);
    return paths;
}

} // namespace

void StorageInfoTest::initTestCase()
{
    // What is staged can be read by others, for the test that becomes one.
    ::umask(022);
}

void StorageInfoTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    _staged = std::make_unique<StagedRoots>();
    StorageInfo::setRoots(_staged->roots());
}

void StorageInfoTest::cleanup()
{
    StorageInfo::setRoots({});
}

QStringList StorageInfoTest::paths() const
{
    const StorageInfo info;
    QStringList paths;
    for (const FileSystem& system : info.fileSystems())
        paths.append(system.path());
    return paths;
}

void StorageInfoTest::removable_data()
{
    QTest::addColumn<QString>("disk");
    QTest::addColumn<QString>("partition");
    QTest::addColumn<QString>("bus");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("removable");
    const QString pci = u"pci0000:00/0000:00:14.0"_s;
    QTest::newRow("internal disk")
        << u"sda"_s << u"sda1"_s << pci + u"/ata1/host0"_s << false << QByteArray() << false;
    QTest::newRow("NVMe") << u"nvme0n1"_s << u"nvme0n1p2"_s << pci + u"/nvme"_s << false
                          << QByteArray() << false;
    QTest::newRow("USB stick") << u"sdb"_s << u"sdb1"_s << pci + u"/usb1/1-2/1-2:1.0/host6"_s
                               << true << QByteArray() << true;
    QTest::newRow("USB disk that calls itself fixed")
        << u"sdb"_s << u"sdb1"_s << pci + u"/usb2/2-1/2-1:1.0/host6"_s << false << QByteArray()
        << true;
    QTest::newRow("USB stick without partitions")
        << u"sdb"_s << QString() << pci + u"/usb1/1-2/host6"_s << true << QByteArray() << true;
    QTest::newRow("card reader that calls itself removable")
        << u"sdc"_s << u"sdc1"_s << pci + u"/ata3/host3"_s << true << QByteArray() << true;
    QTest::newRow("SD card in a built-in slot")
        << u"mmcblk0"_s << u"mmcblk0p1"_s << u"platform/mmc0/mmc0:0001"_s << false
        << QByteArray("SD\n") << true;
    QTest::newRow("soldered eMMC") << u"mmcblk1"_s << u"mmcblk1p1"_s << u"platform/mmc1/mmc1:0001"_s
                                   << false << QByteArray("MMC\n") << false;
    QTest::newRow("Memory Stick") << u"mspblk0"_s << u"mspblk0p1"_s << pci + u"/memstick0"_s
                                  << false << QByteArray() << true;
    QTest::newRow("CompactFlash in PCMCIA")
        << u"sdd"_s << u"sdd1"_s << pci + u"/pcmcia_socket0/0.0/host7"_s << false << QByteArray()
        << true;
    QTest::newRow("a disk behind a host called like USB")
        << u"sda"_s << u"sda1"_s << u"platform/usbless/ata1"_s << false << QByteArray() << false;
    QTest::newRow("a disk behind a host called like USB without a number")
        << u"sda"_s << u"sda1"_s << u"platform/usb/ata1"_s << false << QByteArray() << false;
    QTest::newRow("a disk behind a host called like USB with more behind its number")
        << u"sda"_s << u"sda1"_s << u"platform/usb1-2/ata1"_s << false << QByteArray() << false;
    QTest::newRow("a disk whose own name is like that of USB")
        << u"usb1"_s << QString() << pci << false << QByteArray() << false;
}

void StorageInfoTest::removable()
{
    QFETCH(QString, disk);
    QFETCH(QString, partition);
    QFETCH(QString, bus);
    QFETCH(bool, flag);
    QFETCH(QByteArray, type);
    _staged->addDisk(disk, bus, flag);
    if (!type.isEmpty())
        _staged->setAttribute(disk, u"device/type"_s, type);
    if (!partition.isEmpty())
        _staged->addPartition(disk, partition);
    const QString device = partition.isEmpty() ? disk : partition;
    _staged->setTable(mount("8:1", "/", "/mnt/card", "vfat", "/dev/" + device.toLatin1()));

    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    const FileSystem system = info.fileSystems().constFirst();
    QCOMPARE(system.path(), u"/mnt/card"_s);
    QTEST(system.isRemovable(), "removable");
}

void StorageInfoTest::listsDevicesInTableOrder()
{
    for (const QString& disk : {u"sda"_s, u"sdb"_s, u"sdc"_s})
        _staged->addDisk(disk, u"pci/usb1/host"_s + disk, true);
    _staged->setTable(mount("8:32", "/", "/z", "vfat", "/dev/sdc") +
                      mount("8:0", "/", "/m", "vfat", "/dev/sda") +
                      mount("8:16", "/", "/a", "vfat", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/z"_s, u"/m"_s, u"/a"_s}));
}

void StorageInfoTest::leavesOutWhatIsNoDevice()
{
    _staged->addDisk(u"sda"_s, u"pci/ata1"_s, false);
    _staged->setTable(
        mount("0:21", "/", "/proc", "proc", "proc") + mount("0:25", "/", "/tmp", "tmpfs", "tmpfs") +
        mount("0:40", "/", "/net", "nfs4", "server:/export") +
        mount("0:41", "/", "/run/user/1000/doc", "fuse.portal", "portal") +
        mount("0:42", "/", "/odd", "fuse", "/dev/fuse") +
        mount("0:43", "/", "/sda", "tmpfs", "sda") + mount("8:0", "/", "/", "ext4", "/dev/sda"));
    QCOMPARE(paths(), QStringList({u"/"_s}));
}

void StorageInfoTest::bindMountIsNotASecondCard()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mount("8:16", "/QtPalmtop", "/home/me/card", "vfat", "/dev/sdb") +
                      mount("8:16", "/", "/media/me/CARD", "vfat", "/dev/sdb") +
                      mount("8:16", "/photos", "/home/me/photos", "vfat", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/media/me/CARD"_s}));
}

void StorageInfoTest::secondMountOfADeviceIsNotASecondCard()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setNumber(u"sdb"_s, u"8:16"_s);
    _staged->setTable(mount("8:16", "/", "/nowhere/first", "vfat", "/dev/sdb") +
                      mount("8:16", "/", "/nowhere/second", "vfat", "/dev/sdb") +
                      mount("8:16", "/", "/nowhere/third", "vfat", "/dev/disk/by-label/CARD"));
    QCOMPARE(paths(), QStringList({u"/nowhere/first"_s}));
}

void StorageInfoTest::btrfsSubvolumeCounts()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mount("0:50", "/@cards", "/nowhere/cards", "btrfs", "/dev/sdb") +
                      mount("0:50", "/@home", "/nowhere/home", "btrfs", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/nowhere/cards"_s}));
}

void StorageInfoTest::coveredMountIsLeftOut()
{
    _staged->addDisk(u"sda"_s, u"pci/usb1/1-1"_s, true);
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-2"_s, true);
    _staged->setTable(mount("8:0", "/", "/mnt", "vfat", "/dev/sda") +
                      mount("8:16", "/", "/mnt", "vfat", "/dev/sdb") +
                      mount("8:0", "/", "/other", "vfat", "/dev/sda"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 2);
    QCOMPARE(info.fileSystems()[0].path(), u"/mnt"_s);
    QCOMPARE(info.fileSystems()[1].path(), u"/other"_s);
}

void StorageInfoTest::hiddenMounts_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QStringList>("visible");
    const QByteArray root = mountOn(1, 0, "/", "/dev/sda");
    const QByteArray card = mountOn(2, 1, "/media/card", "/dev/sdb");
    QTest::newRow("nothing on top") << root + card << QStringList{u"/"_s, u"/media/card"_s};
    QTest::newRow("on its own mount point")
        << root + card + mountOn(3, 2, "/media/card", "/dev/sdc")
        << QStringList{u"/"_s, u"/media/card"_s};
    QTest::newRow("on a directory above")
        << root + card + mountOn(3, 1, "/media", "tmpfs") << QStringList{u"/"_s, u"/media"_s};
    QTest::newRow("on a directory above, listed in front")
        << root + mountOn(3, 1, "/media", "tmpfs") + card << QStringList{u"/"_s, u"/media"_s};
    QTest::newRow("on a directory above, then at the same place again")
        << root + card + mountOn(3, 1, "/media", "tmpfs") + mountOn(4, 3, "/media/card", "/dev/sdb")
        << QStringList{u"/"_s, u"/media"_s, u"/media/card"_s};
    QTest::newRow("within a hidden mount")
        << root + card + mountOn(3, 2, "/media/card/a/b", "/dev/sdc") +
               mountOn(4, 1, "/media", "tmpfs")
        << QStringList{u"/"_s, u"/media"_s};
    QTest::newRow("on the root directory of the mount that it stands in")
        << root + card + mountOn(3, 2, "/media/card/a", "/dev/sdc") +
               mountOn(4, 2, "/media/card", "tmpfs")
        << QStringList{u"/"_s, u"/media/card"_s};
    // A process keeps the root directory that it has.
    QTest::newRow("on the root directory")
        << root + card + mountOn(3, 1, "/", "/dev/sdc") + mountOn(4, 3, "/mnt", "/dev/sdd")
        << QStringList{u"/"_s, u"/media/card"_s};
    QTest::newRow("the mount that it stands in is listed behind")
        << card + mountOn(3, 1, "/run", "tmpfs") + root
        << QStringList{u"/media/card"_s, u"/run"_s, u"/"_s};
    QTest::newRow("only a name alike")
        << root + card + mountOn(3, 1, "/media/car", "tmpfs") + mountOn(4, 1, "/med", "tmpfs")
        << QStringList{u"/"_s, u"/media/card"_s, u"/media/car"_s, u"/med"_s};
    QTest::newRow("hidden by the first of the table")
        << mountOn(3, 1, "/media", "tmpfs") + card << QStringList{u"/media"_s};
    QTest::newRow("stands in itself")
        << mountOn(4, 4, "/media/card", "/dev/sdb") << QStringList{u"/media/card"_s};
    QTest::newRow("the root is not listed")
        << card + mountOn(3, 1, "/home", "/dev/sdc") + mountOn(4, 1, "/media", "tmpfs")
        << QStringList{u"/home"_s, u"/media"_s};
}

void StorageInfoTest::hiddenMounts()
{
    QFETCH(QByteArray, table);
    const QList<teskel::Mount> mounts = teskel::visibleMounts(teskel::parseMountTable(table));
    QTEST(pathsOf(mounts), "visible");
    // The last that was mounted is the one that can be seen.
    for (const teskel::Mount& mount : mounts) {
        if (mount.path == u"/media/card"_s && table.contains("3 2 8:16 / /media/card "))
            QCOMPARE(mount.source, u"/dev/sdc"_s);
    }
}

void StorageInfoTest::hiddenMountOfADeviceGivesWayToAnother()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mountOn(1, 0, "/", "overlay") + mountOn(2, 1, "/media/card", "/dev/sdb") +
                      mountOn(3, 1, "/media", "tmpfs") + mountOn(4, 1, "/mnt", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/mnt"_s}));
}

void StorageInfoTest::firstReachableMountOfADeviceCounts()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mountOn(2, 1, QFile::encodeName(first.path()), "/dev/sdb") +
                      mountOn(3, 1, QFile::encodeName(second.path()), "/dev/sdb"));
    QCOMPARE(paths(), QStringList({first.path()}));
}

void StorageInfoTest::missingMountPointGivesWayToAnother()
{
    const QTemporaryDir place;
    _staged->addDisk(u"sda"_s, u"pci/usb1/1-1"_s, true);
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-2"_s, true);
    _staged->setTable(mountOn(2, 1, "/nowhere/first", "/dev/sdb") +
                      mountOn(3, 1, QFile::encodeName(place.path()), "/dev/sdb") +
                      mountOn(4, 1, "/nowhere/second", "/dev/sdb") +
                      mountOn(5, 1, "/nowhere/other", "/dev/sda"));
    QCOMPARE(paths(), QStringList({place.path(), u"/nowhere/other"_s}));
}

/// As a desktop mounts a card for another person.
void StorageInfoTest::forbiddenMountPointGivesWayToAnother()
{
    constexpr uid_t other = 65'534;
    const QTemporaryDir place;
    const QDir directory(place.path());
    QCOMPARE(::chmod(QFile::encodeName(place.path()).constData(), 0755), 0);
    QVERIFY(directory.mkpath(u"mine"_s) && directory.mkpath(u"open"_s));
    const QByteArray forbidden = QFile::encodeName(directory.filePath(u"mine"_s));
    QCOMPARE(::chmod(forbidden.constData(), 0), 0);
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mountOn(2, 1, forbidden, "/dev/sdb") +
                      mountOn(3, 1, QFile::encodeName(directory.filePath(u"open"_s)), "/dev/sdb"));
    _staged->letOthersRead();
    // Nothing is forbidden to root.
    const uid_t own = ::geteuid();
    if (own == 0 && ::seteuid(other) != 0)
        QSKIP("this root may become nobody else");
    const QStringList listed = paths();
    QCOMPARE(::seteuid(own), 0);
    QCOMPARE(::chmod(forbidden.constData(), 0700), 0);
    QCOMPARE(listed, QStringList({directory.filePath(u"open"_s)}));
}

void StorageInfoTest::deviceWithoutAReachableMountIsStillListed()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mountOn(2, 1, "/nowhere/first", "/dev/sdb") +
                      mountOn(3, 1, "/nowhere/second", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/nowhere/first"_s}));
}

void StorageInfoTest::loopOfMountsEnds()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->setTable(mountOn(2, 3, "/a/b", "/dev/sdb") + mountOn(3, 2, "/a", "tmpfs") +
                      mountOn(4, 4, "/c", "/dev/sdb"));
    QCOMPARE(paths(), QStringList({u"/a/b"_s}));
}

void StorageInfoTest::deviceGoesByItsOtherNames()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->addDeviceName(u"disk/by-label/CARD"_s, u"sdb"_s);
    _staged->setTable(mount("0:99", "/", "/card", "vfat", "/dev/disk/by-label/CARD"));
    QCOMPARE(paths(), QStringList({u"/card"_s}));
}

void StorageInfoTest::decodesEscapes_data()
{
    QTest::addColumn<QByteArray>("raw");
    QTest::addColumn<QString>("path");
    QTest::newRow("blank") << QByteArray("/media/MY\\040CARD") << u"/media/MY CARD"_s;
    QTest::newRow("tab") << QByteArray("/a\\011b") << u"/a\tb"_s;
    QTest::newRow("line feed") << QByteArray("/a\\012b") << u"/a\nb"_s;
    QTest::newRow("backslash") << QByteArray("/a\\134040b") << u"/a\\040b"_s;
    QTest::newRow("number sign") << QByteArray("/a\\043") << u"/a#"_s;
    QTest::newRow("UTF-8") << QByteArray("/\xC3\xA4") << u"/ä"_s;
    QTest::newRow("too short") << QByteArray("/a\\04") << u"/a\\04"_s;
    QTest::newRow("not octal") << QByteArray("/a\\0x9b") << u"/a\\0x9b"_s;
}

void StorageInfoTest::decodesEscapes()
{
    QFETCH(QByteArray, raw);
    const auto mounts = teskel::parseMountTable(mount("8:16", "/", raw, "vfat", "/dev/sdb"));
    QCOMPARE(mounts.size(), 1);
    QTEST(mounts[0].path, "path");
}

void StorageInfoTest::optionalFieldsAreSkipped()
{
    const auto mounts = teskel::parseMountTable(
        "1 2 8:16 / /none rw - vfat /dev/sdb rw\n"
        "1 2 8:17 / /two rw shared:7 propagate_from:2 - ext4 /dev/sdc rw,data=ordered\n");
    QCOMPARE(mounts.size(), 2);
    QCOMPARE(mounts[0].source, u"/dev/sdb"_s);
    QCOMPARE(mounts[1].type, u"ext4"_s);
    QCOMPARE(mounts[1].source, u"/dev/sdc"_s);
    QCOMPARE(mounts[1].device, u"8:17"_s);
}

void StorageInfoTest::fuseMountGoesByItsSource()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->addPartition(u"sdb"_s, u"sdb1"_s);
    _staged->setTable(mount("0:52", "/", "/media/me/NTFS", "fuseblk", "/dev/sdb1"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    QVERIFY(info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::rootDeviceGoesByItsNumber()
{
    _staged->addDisk(u"mmcblk0"_s, u"platform/mmc0/mmc0:0001"_s, false);
    _staged->setAttribute(u"mmcblk0"_s, u"device/type"_s, "SD\n");
    _staged->addPartition(u"mmcblk0"_s, u"mmcblk0p2"_s);
    _staged->setNumber(u"mmcblk0p2"_s, u"179:2"_s);
    _staged->setTable(mount("179:2", "/", "/", "ext4", "/dev/root"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    QVERIFY(info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::mappedDeviceGoesByItsName()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    _staged->addDisk(u"dm-3"_s, u"virtual"_s, false);
    _staged->setAttribute(u"dm-3"_s, u"dm/name"_s, "luks-card\n");
    _staged->addSlave(u"dm-3"_s, u"sdb"_s);
    _staged->setTable(mount("0:60", "/@", "/card", "btrfs", "/dev/mapper/luks-card"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    QVERIFY(info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::encryptedCardIsRemovable()
{
    _staged->addDisk(u"mmcblk0"_s, u"platform/mmc0/mmc0:0001"_s, false);
    _staged->setAttribute(u"mmcblk0"_s, u"device/type"_s, "SD\n");
    _staged->addPartition(u"mmcblk0"_s, u"mmcblk0p1"_s);
    _staged->addDisk(u"dm-0"_s, u"virtual"_s, false);
    _staged->addSlave(u"dm-0"_s, u"mmcblk0p1"_s);
    _staged->addDisk(u"dm-1"_s, u"virtual"_s, false);
    _staged->addSlave(u"dm-1"_s, u"dm-0"_s);
    _staged->setTable(mount("253:1", "/", "/card", "ext4", "/dev/dm-1"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    QVERIFY(info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::encryptedDiskIsNot()
{
    _staged->addDisk(u"sda"_s, u"pci/ata1"_s, false);
    _staged->addPartition(u"sda"_s, u"sda2"_s);
    _staged->addDisk(u"dm-0"_s, u"virtual"_s, false);
    _staged->addSlave(u"dm-0"_s, u"sda2"_s);
    _staged->setTable(mount("253:0", "/", "/", "ext4", "/dev/dm-0"));
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 1);
    QVERIFY(!info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::loopOfSlavesEnds()
{
    _staged->addDisk(u"dm-0"_s, u"virtual"_s, false);
    _staged->addDisk(u"dm-1"_s, u"virtual"_s, false);
    _staged->addSlave(u"dm-0"_s, u"dm-1"_s);
    _staged->addSlave(u"dm-1"_s, u"dm-0"_s);
    _staged->setTable(mount("253:0", "/", "/", "ext4", "/dev/dm-0"));
    const StorageInfo info;
    QVERIFY(!info.fileSystems().constFirst().isRemovable());
}

void StorageInfoTest::missingRootsGiveNothing()
{
    _staged->setTable(mount("8:16", "/", "/card", "vfat", "/dev/sdb"));
    QCOMPARE(paths(), QStringList());
    StorageInfo::setRoots({u"/nowhere/mountinfo"_s, u"/nowhere/sys"_s});
    QCOMPARE(paths(), QStringList());
}

void StorageInfoTest::damagedTablesDoNoHarm()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    const QByteArray good = mount("8:16", "/", "/card", "vfat", "/dev/sdb");
    for (qsizetype size = 0; size < good.size(); ++size) {
        _staged->setTable(good.first(size) + "\n\n   \n- - - - - - - -\n");
        QVERIFY(paths().size() <= 1);
    }
    QByteArray noise(20'000, Qt::Uninitialized);
    QRandomGenerator generator(3);
    for (char& byte : noise)
        byte = static_cast<char>(generator.bounded(256));
    _staged->setTable(noise + '\n' + good);
    QCOMPARE(paths(), QStringList({u"/card"_s}));
}

void StorageInfoTest::followsTheCardChannel()
{
    _staged->addDisk(u"sdb"_s, u"pci/usb1/1-1"_s, true);
    const StorageInfo info;
    QCOMPARE(info.fileSystems().size(), 0);
    _staged->setTable(mount("8:16", "/", "/card", "vfat", "/dev/sdb"));
    QCopChannel::send("QPE/Card", "somethingElse()");
    QCopChannel::send("QPE/Card", "mtabChanged()");
    QTRY_COMPARE(info.fileSystems().size(), 1);
}

void StorageInfoTest::ownMachineCanBeRead()
{
    StorageInfo::setRoots({});
    if (!QFile::exists(u"/sys/class/block"_s))
        QSKIP("no sysfs");
    QFile table(u"/proc/self/mountinfo"_s);
    QVERIFY(table.open(QIODevice::ReadOnly));
    const auto mounts = teskel::parseMountTable(table.readAll());
    QVERIFY(!mounts.isEmpty());
    const QStringList listed = paths();
    for (const QString& path : listed) {
        QVERIFY(std::any_of(mounts.cbegin(), mounts.cend(),
                            [&path](const teskel::Mount& m) { return m.path == path; }));
    }
}

QTEST_GUILESS_MAIN(StorageInfoTest)
#include "test_storageinfo.moc"
