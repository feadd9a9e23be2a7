// SPDX-License-Identifier: MIT
#include "platform/pngpicture.h"
#include "platform/resource.h"

#include <QResource>
#include <QtTest>

using namespace Qt::StringLiterals;

class PngPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void givesThePixelsOfAnImageReader_data();
    void givesThePixelsOfAnImageReader();
    void programIconIsUncompressed_data();
    void programIconIsUncompressed();
    void damagedPictureIsNull_data();
    void damagedPictureIsNull();
};

namespace
{

QByteArray compiledIn(const QString& name)
{
    QFile file(u":/pics/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void PngPictureTest::givesThePixelsOfAnImageReader_data()
{
    QTest::addColumn<QString>("name");
    // Asking for one makes all of them known.
    QVERIFY(!Resource::loadIcon(u"teskel"_s).isNull());
    const QStringList names = QDir(u":/pics"_s).entryList();
    QVERIFY(names.size() > 12);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void PngPictureTest::givesThePixelsOfAnImageReader()
{
    QFETCH(const QString, name);
    const QByteArray png = compiledIn(name);
    const QImage picture = teskel::pictureFromPng(png);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.format(), QImage::Format_ARGB32);
    QCOMPARE(picture, QImage::fromData(png));
}

void PngPictureTest::programIconIsUncompressed_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 20, 24, 32, 40, 48})
        QTest::addRow("%d", size) << size;
}

/// Under X every size of it is read before the window is there.
void PngPictureTest::programIconIsUncompressed()
{
    QFETCH(const int, size);
    QVERIFY(!Resource::loadIcon(u"teskel"_s).isNull());
    const QResource file(u":/pics/teskel-%1.png"_s.arg(size));
    QCOMPARE(file.compressionAlgorithm(), QResource::NoCompression);
    const QImage picture = teskel::pictureFromPng(file.uncompressedData());
    QCOMPARE(picture.size(), QSize(size, size));
    QVERIFY(file.size() > picture.sizeInBytes());
}

void PngPictureTest::damagedPictureIsNull_data()
{
    QTest::addColumn<QByteArray>("png");
    QVERIFY(!Resource::loadIcon(u"teskel"_s).isNull());
    const QByteArray whole = compiledIn(u"copy-24.png"_s);
    QVERIFY(whole.size() > 100);
    QByteArray wrongByte = whole;
    wrongByte[whole.size() / 2] = static_cast<char>(~wrongByte.at(whole.size() / 2));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no picture");
    QTest::newRow("header alone") << whole.first(33);
    QTest::newRow("half") << whole.first(whole.size() / 2);
    QTest::newRow("wrong byte") << wrongByte;
}

void PngPictureTest::damagedPictureIsNull()
{
    QFETCH(const QByteArray, png);
    QVERIFY(teskel::pictureFromPng(png).isNull());
}

QTEST_MAIN(PngPictureTest)
#include "test_pngpicture.moc"
