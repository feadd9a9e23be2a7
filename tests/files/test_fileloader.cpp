// SPDX-License-Identifier: MIT
#include "files/dictionarydirectories.h"
#include "files/fileloader.h"
#include "tests/files/stagedstorage.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

QStringList paths(const QList<QTeskelFileInfo>& files)
{
    QStringList list;
    for (const QTeskelFileInfo& file : files)
        list.append(file.path());
    return list;
}

QStringList names(const QList<QTeskelFileInfo>& files)
{
    QStringList list;
    for (const QTeskelFileInfo& file : files)
        list.append(file._fileInfo.fileName());
    return list;
}

QList<QTeskelFileInfo> discover(bool removableOnly = false)
{
    return FileLoader().getFileList(removableOnly);
}

} // namespace

/// Discovery in staged directories and on staged cards.
class FileLoaderTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void defaultInfoIsEmpty();
    void displayNameEndsAtTheFirstDot_data();
    void displayNameEndsAtTheFirstDot();
    void nothingThereGivesNothing();
    void unsetQpedirCountsAsEmpty();
    void removableOnlyLeavesInternalStorageOut();
    void internalFilesComeBeforeThoseOfTheCards();
    void cardsComeInTheOrderOfThePlatform();
    void fixedDisksArePassedOver();
    void cardWithoutTheDirectoryGivesNothing();
    void sameNameInTwoPlacesIsListedTwice();
    void linkCountsOnACardOnly();
    void danglingLinksAreNotListed();
    void directoryOfThatNameIsListedLikeAFile();
    void caseIsIgnoredInSorting();
    void lowerCaseExtensionIsFound();
    void otherFilesAreNotListed();
    void pathsAreAbsoluteAndLinksInThemKept();
    void hostileNamesAreListedAsTheyAre();
    void eachCallStartsAnew();
    void returnedListDoesNotChange();
    void cardThatIsGoneIsNotListed();
    void unreadableDirectoryGivesNothing();

private:
    std::unique_ptr<StagedStorage> _storage;
};

void FileLoaderTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    _storage = std::make_unique<StagedStorage>();
}

void FileLoaderTest::cleanup()
{
    _storage.reset();
}

void FileLoaderTest::defaultInfoIsEmpty()
{
    const QTeskelFileInfo info;
    QVERIFY(info._fileInfo.filePath().isEmpty());
    QVERIFY(info.displayName().isEmpty());
    QVERIFY(!info._removable);
}

void FileLoaderTest::displayNameEndsAtTheFirstDot_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"/a.b/EngGer.PDB"_s << u"EngGer"_s;
    QTest::newRow("two dots") << u"/a/en2de.old.PDB"_s << u"en2de"_s;
    QTest::newRow("blanks") << u"/a/my words .PDB"_s << u"my words "_s;
    QTest::newRow("no dot") << u"/a/words"_s << u"words"_s;
}

void FileLoaderTest::displayNameEndsAtTheFirstDot()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    const QTeskelFileInfo info{QFileInfo(file), true};
    QCOMPARE(info.displayName(), name);
    QCOMPARE(info.path(), file);
}

void FileLoaderTest::nothingThereGivesNothing()
{
    QVERIFY(discover().isEmpty());
    QVERIFY(discover(true).isEmpty());
}

void FileLoaderTest::unsetQpedirCountsAsEmpty()
{
    qunsetenv("QPEDIR");
    const QList<teskel::DictionaryDirectory> directories = teskel::dictionaryDirectories(false);
    QCOMPARE(directories.size(), 1);
    QCOMPARE(directories.first().path, u"/teskel"_s);
    QVERIFY(teskel::dictionaryDirectories(true).isEmpty());
}

void FileLoaderTest::removableOnlyLeavesInternalStorageOut()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"a.PDB"_s);
    const QString card = StagedStorage::addFile(_storage->addCard(u"a"_s), u"b.PDB"_s);
    QCOMPARE(paths(discover(true)), QStringList{card});
}

void FileLoaderTest::internalFilesComeBeforeThoseOfTheCards()
{
    const QString card = StagedStorage::addFile(_storage->addCard(u"a"_s), u"a.PDB"_s);
    const QString internal = StagedStorage::addFile(_storage->internalDirectory(), u"z.PDB"_s);
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), (QStringList{internal, card}));
    QVERIFY(!files.at(0)._removable);
    QVERIFY(files.at(1)._removable);
}

void FileLoaderTest::cardsComeInTheOrderOfThePlatform()
{
    StagedStorage::addFile(_storage->addCard(u"z"_s), u"z.PDB"_s);
    StagedStorage::addFile(_storage->addCard(u"a"_s), u"a.PDB"_s);
    QCOMPARE(names(discover()), (QStringList{u"z.PDB"_s, u"a.PDB"_s}));
}

void FileLoaderTest::fixedDisksArePassedOver()
{
    StagedStorage::addFile(_storage->addFixedDisk(u"a"_s), u"a.PDB"_s);
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::cardWithoutTheDirectoryGivesNothing()
{
    QVERIFY(QDir(_storage->addCard(u"a"_s)).removeRecursively());
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::sameNameInTwoPlacesIsListedTwice()
{
    const QString name = u"Eng2Ger.PDB"_s;
    const QStringList places{
        StagedStorage::addFile(_storage->internalDirectory(), name),
        StagedStorage::addFile(_storage->addCard(u"a"_s), name),
        StagedStorage::addFile(_storage->addCard(u"b"_s), name),
    };
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), places);
    QVERIFY(!files.at(0)._removable);
    QVERIFY(files.at(1)._removable);
    QVERIFY(files.at(2)._removable);
}

void FileLoaderTest::linkCountsOnACardOnly()
{
    const QString target = StagedStorage::addFile(_storage->path(QString()), u"t"_s);
    const QString link = u"/link.PDB"_s;
    const QString card = _storage->addCard(u"a"_s);
    QVERIFY(QFile::link(target, _storage->internalDirectory() + link));
    QVERIFY(QFile::link(target, card + link));
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), QStringList{card + link});
    QVERIFY(files.first()._removable);
}

void FileLoaderTest::danglingLinksAreNotListed()
{
    const QString card = _storage->addCard(u"a"_s);
    QVERIFY(QFile::link(u"/nowhere/at all"_s, card + u"/link.PDB"_s));
    QVERIFY(QFile::link(card + u"/loop.PDB"_s, card + u"/loop.PDB"_s));
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::directoryOfThatNameIsListedLikeAFile()
{
    const QString directory = _storage->internalDirectory() + u"/x.PDB"_s;
    QVERIFY(QDir().mkdir(directory));
    StagedStorage::addFile(directory, u"inner.PDB"_s);
    QCOMPARE(paths(discover()), QStringList{directory});
}

void FileLoaderTest::caseIsIgnoredInSorting()
{
    for (const char* name : {"b.PDB", "A.PDB", "c.PDB", "B2.PDB"})
        StagedStorage::addFile(_storage->internalDirectory(), QString::fromUtf8(name));
    QCOMPARE(names(discover()), (QStringList{u"A.PDB"_s, u"b.PDB"_s, u"B2.PDB"_s, u"c.PDB"_s}));
}

void FileLoaderTest::lowerCaseExtensionIsFound()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"a.pdb"_s);
    QCOMPARE(names(discover()), QStringList{u"a.pdb"_s});
}

void FileLoaderTest::otherFilesAreNotListed()
{
    const QString directory = _storage->internalDirectory();
    for (const char* name : {"a.PDB.bak", "aPDB", ".hidden.PDB", ".PDB", "a.PDC", "b.prc"})
        StagedStorage::addFile(directory, QString::fromUtf8(name));
    const QString pipe = directory + u"/pipe.PDB"_s;
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::pathsAreAbsoluteAndLinksInThemKept()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"a.PDB"_s);
    const QString link = _storage->path(u"link"_s);
    QVERIFY(QFile::link(_storage->path(u"qpe"_s), link));
    qputenv("QPEDIR", (link + u"/../link"_s).toUtf8());
    QCOMPARE(paths(discover()), QStringList{link + u"/teskel/a.PDB"_s});

    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(_storage->path(QString())));
    qputenv("QPEDIR", "qpe");
    const QList<QTeskelFileInfo> files = discover();
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(paths(files), QStringList{_storage->path(u"qpe/teskel/a.PDB"_s)});
}

void FileLoaderTest::hostileNamesAreListedAsTheyAre()
{
    const QStringList hostile{u"\n.PDB"_s, u"%n %1 %s.PDB"_s, u"<b>x&y.PDB"_s, u"[a]*?.PDB"_s,
                              u"жук.PDB"_s};
    for (const QString& name : hostile)
        StagedStorage::addFile(_storage->internalDirectory(), name);
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(names(files), hostile);
    for (const QTeskelFileInfo& file : files)
        QVERIFY(QFile::exists(file.path()));
}

void FileLoaderTest::eachCallStartsAnew()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"a.PDB"_s);
    FileLoader loader;
    loader.append(_storage->internalDirectory(), true);
    QCOMPARE(loader.getFileList(false).size(), 1);
    const QList<QTeskelFileInfo> files = loader.getFileList(false);
    QCOMPARE(files.size(), 1);
    QVERIFY(!files.first()._removable);
}

void FileLoaderTest::returnedListDoesNotChange()
{
    StagedStorage::addFile(_storage->internalDirectory(), u"a.PDB"_s);
    FileLoader loader;
    const QList<QTeskelFileInfo> files = loader.getFileList(false);
    loader.append(_storage->internalDirectory(), false);
    QCOMPARE(files.size(), 1);
}

void FileLoaderTest::cardThatIsGoneIsNotListed()
{
    StagedStorage::addFile(_storage->addCard(u"a"_s), u"a.PDB"_s);
    QCOMPARE(discover().size(), 1);
    _storage->unmount(u"a"_s);
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::unreadableDirectoryGivesNothing()
{
    // A plain file in its place cannot be listed, not even by root.
    QVERIFY(QDir().mkpath(_storage->path(u"qpe"_s)));
    StagedStorage::addFile(_storage->path(u"qpe"_s), u"teskel"_s);
    QVERIFY(discover().isEmpty());
}

QTEST_GUILESS_MAIN(FileLoaderTest)
#include "test_fileloader.moc"
