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
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
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
    QTest::newRow("plain") << QStringLiteral("/a.b/EngGer.PDB") << QStringLiteral("EngGer");
    QTest::newRow("two dots") << QStringLiteral("/a/en2de.old.PDB") << QStringLiteral("en2de");
    QTest::newRow("blanks") << QStringLiteral("/a/my words .PDB") << QStringLiteral("my words ");
    QTest::newRow("no dot") << QStringLiteral("/a/words") << QStringLiteral("words");
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
    QCOMPARE(directories.first().path, QStringLiteral("/teskel"));
    QVERIFY(teskel::dictionaryDirectories(true).isEmpty());
}

void FileLoaderTest::removableOnlyLeavesInternalStorageOut()
{
    StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("a.PDB"));
    const QString card =
        StagedStorage::addFile(_storage->addCard(QStringLiteral("a")), QStringLiteral("b.PDB"));
    QCOMPARE(paths(discover(true)), QStringList{card});
}

void FileLoaderTest::internalFilesComeBeforeThoseOfTheCards()
{
    const QString card =
        StagedStorage::addFile(_storage->addCard(QStringLiteral("a")), QStringLiteral("a.PDB"));
    const QString internal =
        StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("z.PDB"));
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), (QStringList{internal, card}));
    QVERIFY(!files.at(0)._removable);
    QVERIFY(files.at(1)._removable);
}

void FileLoaderTest::cardsComeInTheOrderOfThePlatform()
{
    StagedStorage::addFile(_storage->addCard(QStringLiteral("z")), QStringLiteral("z.PDB"));
    StagedStorage::addFile(_storage->addCard(QStringLiteral("a")), QStringLiteral("a.PDB"));
    QCOMPARE(names(discover()), (QStringList{QStringLiteral("z.PDB"), QStringLiteral("a.PDB")}));
}

void FileLoaderTest::fixedDisksArePassedOver()
{
    StagedStorage::addFile(_storage->addFixedDisk(QStringLiteral("a")), QStringLiteral("a.PDB"));
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::cardWithoutTheDirectoryGivesNothing()
{
    QVERIFY(QDir(_storage->addCard(QStringLiteral("a"))).removeRecursively());
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::sameNameInTwoPlacesIsListedTwice()
{
    const QString name = QStringLiteral("Eng2Ger.PDB");
    const QStringList places{
        StagedStorage::addFile(_storage->internalDirectory(), name),
        StagedStorage::addFile(_storage->addCard(QStringLiteral("a")), name),
        StagedStorage::addFile(_storage->addCard(QStringLiteral("b")), name),
    };
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), places);
    QVERIFY(!files.at(0)._removable);
    QVERIFY(files.at(1)._removable);
    QVERIFY(files.at(2)._removable);
}

void FileLoaderTest::linkCountsOnACardOnly()
{
    const QString target = StagedStorage::addFile(_storage->path(QString()), QStringLiteral("t"));
    const QString link = QStringLiteral("/link.PDB");
    const QString card = _storage->addCard(QStringLiteral("a"));
    QVERIFY(QFile::link(target, _storage->internalDirectory() + link));
    QVERIFY(QFile::link(target, card + link));
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(paths(files), QStringList{card + link});
    QVERIFY(files.first()._removable);
}

void FileLoaderTest::danglingLinksAreNotListed()
{
    const QString card = _storage->addCard(QStringLiteral("a"));
    QVERIFY(QFile::link(QStringLiteral("/nowhere/at all"), card + QStringLiteral("/link.PDB")));
    QVERIFY(QFile::link(card + QStringLiteral("/loop.PDB"), card + QStringLiteral("/loop.PDB")));
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::directoryOfThatNameIsListedLikeAFile()
{
    const QString directory = _storage->internalDirectory() + QStringLiteral("/x.PDB");
    QVERIFY(QDir().mkdir(directory));
    StagedStorage::addFile(directory, QStringLiteral("inner.PDB"));
    QCOMPARE(paths(discover()), QStringList{directory});
}

void FileLoaderTest::caseIsIgnoredInSorting()
{
    for (const char* name : {"b.PDB", "A.PDB", "c.PDB", "B2.PDB"})
        StagedStorage::addFile(_storage->internalDirectory(), QString::fromUtf8(name));
    QCOMPARE(names(discover()), (QStringList{QStringLiteral("A.PDB"), QStringLiteral("b.PDB"),
                                             QStringLiteral("B2.PDB"), QStringLiteral("c.PDB")}));
}

void FileLoaderTest::lowerCaseExtensionIsFound()
{
    StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("a.pdb"));
    QCOMPARE(names(discover()), QStringList{QStringLiteral("a.pdb")});
}

void FileLoaderTest::otherFilesAreNotListed()
{
    const QString directory = _storage->internalDirectory();
    for (const char* name : {"a.PDB.bak", "aPDB", ".hidden.PDB", ".PDB", "a.PDC", "b.prc"})
        StagedStorage::addFile(directory, QString::fromUtf8(name));
    const QString pipe = directory + QStringLiteral("/pipe.PDB");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::pathsAreAbsoluteAndLinksInThemKept()
{
    StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("a.PDB"));
    const QString link = _storage->path(QStringLiteral("link"));
    QVERIFY(QFile::link(_storage->path(QStringLiteral("qpe")), link));
    qputenv("QPEDIR", (link + QStringLiteral("/../link")).toUtf8());
    QCOMPARE(paths(discover()), QStringList{link + QStringLiteral("/teskel/a.PDB")});

    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(_storage->path(QString())));
    qputenv("QPEDIR", "qpe");
    const QList<QTeskelFileInfo> files = discover();
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(paths(files), QStringList{_storage->path(QStringLiteral("qpe/teskel/a.PDB"))});
}

void FileLoaderTest::hostileNamesAreListedAsTheyAre()
{
    const QStringList hostile{QStringLiteral("\n.PDB"), QStringLiteral("%n %1 %s.PDB"),
                              QStringLiteral("<b>x&y.PDB"), QStringLiteral("[a]*?.PDB"),
                              QStringLiteral("жук.PDB")};
    for (const QString& name : hostile)
        StagedStorage::addFile(_storage->internalDirectory(), name);
    const QList<QTeskelFileInfo> files = discover();
    QCOMPARE(names(files), hostile);
    for (const QTeskelFileInfo& file : files)
        QVERIFY(QFile::exists(file.path()));
}

void FileLoaderTest::eachCallStartsAnew()
{
    StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("a.PDB"));
    FileLoader loader;
    loader.append(_storage->internalDirectory(), true);
    QCOMPARE(loader.getFileList(false).size(), 1);
    const QList<QTeskelFileInfo> files = loader.getFileList(false);
    QCOMPARE(files.size(), 1);
    QVERIFY(!files.first()._removable);
}

void FileLoaderTest::returnedListDoesNotChange()
{
    StagedStorage::addFile(_storage->internalDirectory(), QStringLiteral("a.PDB"));
    FileLoader loader;
    const QList<QTeskelFileInfo> files = loader.getFileList(false);
    loader.append(_storage->internalDirectory(), false);
    QCOMPARE(files.size(), 1);
}

void FileLoaderTest::cardThatIsGoneIsNotListed()
{
    StagedStorage::addFile(_storage->addCard(QStringLiteral("a")), QStringLiteral("a.PDB"));
    QCOMPARE(discover().size(), 1);
    _storage->unmount(QStringLiteral("a"));
    QVERIFY(discover().isEmpty());
}

void FileLoaderTest::unreadableDirectoryGivesNothing()
{
    // A plain file in its place cannot be listed, not even by root.
    QVERIFY(QDir().mkpath(_storage->path(QStringLiteral("qpe"))));
    StagedStorage::addFile(_storage->path(QStringLiteral("qpe")), QStringLiteral("teskel"));
    QVERIFY(discover().isEmpty());
}

QTEST_GUILESS_MAIN(FileLoaderTest)
#include "test_fileloader.moc"
