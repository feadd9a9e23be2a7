// SPDX-License-Identifier: MIT
#include "platform/fontdatabase.h"
#include "platform/resource.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace Qt::StringLiterals;

class ResourceTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyIconIsCompiledIn_data();
    void everyIconIsCompiledIn();
    void everyIconStandsOut_data();
    void everyIconStandsOut();
    void iconIsSharp_data();
    void iconIsSharp();
    void missingPictureIsNull();
    void installedPictures();
    void compiledInComesFirst();
    void damagedPictureIsNull();
    void familiesAreThoseOfTheSystem();
};

namespace
{

const QStringList names{u"teskel"_s,
                        u"teskel-custom-word"_s,
                        u"teskel-open"_s,
                        u"teskel-crosslookup"_s,
                        u"teskel-toggleview"_s,
                        u"teskel-preferences"_s,
                        u"teskel-floppy"_s,
                        u"teskel-hard"_s,
                        u"teskel-clear"_s,
                        u"copy"_s,
                        u"paste"_s,
                        u"close"_s};

double luminance(const QColor& colour)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

// Share of the picture that differs clearly from a background it is put on.
double shareThatStandsOut(const QImage& picture, const QColor& background)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    painter.drawImage(0, 0, picture);
    painter.end();
    int clear = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            clear += contrast(image.pixelColor(x, y), background) >= 3.0 ? 1 : 0;
    }
    return static_cast<double>(clear) / (image.width() * image.height());
}

void addNames()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void savePicture(const QString& path, const QColor& colour, const char* format)
{
    QImage image(5, 5, QImage::Format_RGB32);
    image.fill(colour);
    QVERIFY(image.save(path, format));
}

QColor colourOf(const QPixmap& pixmap)
{
    return pixmap.toImage().pixelColor(0, 0);
}

} // namespace

void ResourceTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    qunsetenv("QPEDIR");
}

void ResourceTest::everyIconIsCompiledIn_data()
{
    addNames();
}

void ResourceTest::everyIconIsCompiledIn()
{
    QFETCH(QString, name);
    const QPixmap pixmap = Resource::loadPixmap(name);
    const int ratio = qApp->devicePixelRatio() > 1 ? 2 : 1;
    QCOMPARE(pixmap.size(), QSize(24, 24) * ratio);
    QCOMPARE(pixmap.devicePixelRatio(), ratio);
    QVERIFY(!Resource::loadIcon(name).isNull());
}

void ResourceTest::everyIconStandsOut_data()
{
    addNames();
}

void ResourceTest::everyIconStandsOut()
{
    QFETCH(QString, name);
    for (const int size : {16, 24, 48}) {
        const QImage picture = Resource::loadIcon(name).pixmap(QSize(size, size), 1.0).toImage();
        for (const QColor& background : {QColor(Qt::white), QColor(0x20, 0x20, 0x20)}) {
            const double share = shareThatStandsOut(picture, background);
            QVERIFY2(share > 0.10,
                     qPrintable(u"%1 px on %2: %3"_s.arg(size).arg(background.name()).arg(share)));
        }
    }
}

void ResourceTest::iconIsSharp_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<qreal>("ratio");
    for (const int size : {16, 20, 24}) {
        QTest::addRow("%d at once the density", size) << size << 1.0;
        QTest::addRow("%d at twice the density", size) << size << 2.0;
    }
}

void ResourceTest::iconIsSharp()
{
    QFETCH(int, size);
    QFETCH(qreal, ratio);
    for (const QString& name : names) {
        const QPixmap pixmap = Resource::loadIcon(name).pixmap(QSize(size, size), ratio);
        const int pixels = static_cast<int>(size * ratio);
        QCOMPARE(pixmap.size(), QSize(pixels, pixels));
        QCOMPARE(pixmap.devicePixelRatio(), ratio);
        // Not scaled from another size, but the one that was drawn for it.
        const QImage drawn(u":/pics/%1-%2.png"_s.arg(name).arg(pixels));
        QVERIFY(!drawn.isNull());
        // As it is painted: the way back to straight colours rounds by the processor's own
        // approximation of a reciprocal, and those differ.
        QImage shown = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        shown.setDevicePixelRatio(1);
        QImage expected = drawn.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        expected.setDevicePixelRatio(1);
        QCOMPARE(shown, expected);
    }
}

void ResourceTest::missingPictureIsNull()
{
    QVERIFY(Resource::loadPixmap(u"no-such-picture"_s).isNull());
    QVERIFY(Resource::loadIcon(u"no-such-picture"_s).isNull());
    QVERIFY(Resource::loadPixmap(QString()).isNull());
}

void ResourceTest::installedPictures()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(u"pics"_s));
    qputenv("QPEDIR", root.path().toUtf8());
    QVERIFY(Resource::loadPixmap(u"own"_s).isNull());
    savePicture(root.filePath(u"pics/own.bmp"_s), Qt::red, "BMP");
    QCOMPARE(colourOf(Resource::loadPixmap(u"own"_s)), QColor(Qt::red));
    savePicture(root.filePath(u"pics/own.xpm"_s), Qt::green, "XPM");
    QCOMPARE(colourOf(Resource::loadPixmap(u"own"_s)), QColor(Qt::green));
    savePicture(root.filePath(u"pics/own.png"_s), Qt::blue, "PNG");
    QCOMPARE(colourOf(Resource::loadPixmap(u"own"_s)), QColor(Qt::blue));
    QVERIFY(!Resource::loadIcon(u"own"_s).isNull());
}

void ResourceTest::compiledInComesFirst()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(u"pics"_s));
    qputenv("QPEDIR", root.path().toUtf8());
    savePicture(root.filePath(u"pics/copy.png"_s), Qt::red, "PNG");
    QCOMPARE(Resource::loadPixmap(u"copy"_s).deviceIndependentSize(), QSizeF(24, 24));
}

void ResourceTest::damagedPictureIsNull()
{
    const QTemporaryDir root;
    QVERIFY(QDir(root.path()).mkdir(u"pics"_s));
    qputenv("QPEDIR", root.path().toUtf8());
    QFile file(root.filePath(u"pics/broken.png"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\x89PNG and nothing more");
    file.close();
    QVERIFY(Resource::loadPixmap(u"broken"_s).isNull());
    QVERIFY(Resource::loadIcon(u"broken"_s).isNull());
}

void ResourceTest::familiesAreThoseOfTheSystem()
{
    QCOMPARE(FontDatabase::families(), QFontDatabase::families());
}

QTEST_MAIN(ResourceTest)
#include "test_resource.moc"
