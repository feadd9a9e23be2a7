// SPDX-License-Identifier: MIT
// Built with a libarchive of a name that no system has.
#include "lexicon/sources/input/inputfile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestMissingLibrary : public QObject
{
    Q_OBJECT

private slots:
    void packedSourceSaysWhichLibraryIsMissing_data();
    void packedSourceSaysWhichLibraryIsMissing();
};

void TestMissingLibrary::packedSourceSaysWhichLibraryIsMissing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("xz") << QByteArray::fromHex("fd377a585a000000") << false;
    QTest::newRow("zstd") << QByteArray::fromHex("28b52ffd0000") << false;
    QTest::newRow("plain") << "house\tHaus\n"_ba << true;
}

void TestMissingLibrary::packedSourceSaysWhichLibraryIsMissing()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isOpened);
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"source"_s));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const std::string path = QFile::encodeName(file.fileName()).toStdString();

    teskel::InputFile input;
    std::string error;
    QCOMPARE(input.open(path, error), isOpened);
    const std::string expected = "cannot unpack " + path + ": libarchive is not installed";
    QCOMPARE(error, isOpened ? std::string() : expected);
}

QTEST_APPLESS_MAIN(TestMissingLibrary)
#include "test_missinglibrary.moc"
