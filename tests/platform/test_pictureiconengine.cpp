// SPDX-License-Identifier: MIT
#include "platform/pictureiconengine.h"

#include <QPainter>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using teskel::PictureIconEngine;

class PictureIconEngineTest : public QObject
{
    Q_OBJECT

private slots:
    void picturesAreReadWhenFirstPainted();
    void copiesPaintTheSame();
    void paintsAsTheIconOfTheSameFiles_data();
    void paintsAsTheIconOfTheSameFiles();
    void tellsTheSizesOfTheIconOfTheSameFiles_data();
    void tellsTheSizesOfTheIconOfTheSameFiles();
    void pictureThatCannotBeReadIsNull();
};

namespace
{

const QList<int> sizes{16, 24, 48};

// Half-transparent and different in every corner and size.
QImage picture(int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x)
            image.setPixelColor(x, y, QColor(255 * x / size, 255 * y / size, 5 * size, 100 + x));
    }
    return image;
}

QIcon lazyIcon(QList<int>* read = nullptr)
{
    return QIcon(new PictureIconEngine(sizes, [read](int size) {
        if (read != nullptr)
            read->append(size);
        return picture(size);
    }));
}

// The icon of Qt's own that is given the same pictures as files.
class IconOfFiles
{
public:
    IconOfFiles()
    {
        for (const int size : sizes) {
            const QString path = _directory.filePath(u"%1.png"_s.arg(size));
            if (!picture(size).save(path))
                qFatal("no picture could be written");
            icon.addFile(path, QSize(size, size));
        }
    }

    QIcon icon;

private:
    QTemporaryDir _directory;
};

void addModes()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<QIcon::State>("state");
    for (const QSize size : {QSize(8, 8), QSize(16, 16), QSize(17, 17), QSize(24, 20),
                             QSize(12, 40), QSize(48, 48), QSize(64, 64)}) {
        for (const auto mode : {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected}) {
            for (const auto state : {QIcon::Off, QIcon::On})
                QTest::addRow("%dx%d mode %d state %d", size.width(), size.height(), mode, state)
                    << size << mode << state;
        }
    }
}

QImage painted(const QIcon& icon, const QSize& size, qreal ratio, QIcon::Mode mode,
               QIcon::State state)
{
    QImage canvas(100, 100, QImage::Format_RGB32);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    icon.paint(&painter, QRect(QPoint(1, 1), size), Qt::AlignCenter, mode, state);
    return canvas;
}

} // namespace

void PictureIconEngineTest::picturesAreReadWhenFirstPainted()
{
    QList<int> read;
    const QIcon icon = lazyIcon(&read);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.availableSizes().size(), sizes.size());
    QCOMPARE(icon.actualSize(QSize(24, 24)), QSize(24, 24));
    QCOMPARE(read, QList<int>());
    QVERIFY(!icon.pixmap(QSize(24, 24), 1.0).isNull());
    QCOMPARE(read, QList<int>({24}));
    QVERIFY(!icon.pixmap(QSize(24, 24), 1.0, QIcon::Disabled).isNull());
    QCOMPARE(read, QList<int>({24}));
    QVERIFY(!icon.pixmap(QSize(24, 24), 2.0).isNull());
    QCOMPARE(read, QList<int>({24, 48}));
}

void PictureIconEngineTest::copiesPaintTheSame()
{
    const PictureIconEngine original(sizes, picture);
    const QIcon copy(original.clone());
    QCOMPARE(copy.pixmap(QSize(24, 24), 1.0).toImage(),
             lazyIcon().pixmap(QSize(24, 24), 1.0).toImage());
}

void PictureIconEngineTest::paintsAsTheIconOfTheSameFiles_data()
{
    addModes();
}

void PictureIconEngineTest::paintsAsTheIconOfTheSameFiles()
{
    QFETCH(const QSize, size);
    QFETCH(const QIcon::Mode, mode);
    QFETCH(const QIcon::State, state);
    const IconOfFiles reference;
    const QIcon icon = lazyIcon();
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        const QPixmap shown = icon.pixmap(size, ratio, mode, state);
        const QPixmap expected = reference.icon.pixmap(size, ratio, mode, state);
        QCOMPARE(shown.devicePixelRatio(), expected.devicePixelRatio());
        QCOMPARE(shown.toImage(), expected.toImage());
        QCOMPARE(painted(icon, size, ratio, mode, state),
                 painted(reference.icon, size, ratio, mode, state));
    }
}

void PictureIconEngineTest::tellsTheSizesOfTheIconOfTheSameFiles_data()
{
    addModes();
}

void PictureIconEngineTest::tellsTheSizesOfTheIconOfTheSameFiles()
{
    QFETCH(const QSize, size);
    QFETCH(const QIcon::Mode, mode);
    QFETCH(const QIcon::State, state);
    const IconOfFiles reference;
    const QIcon icon = lazyIcon();
    QCOMPARE(icon.availableSizes(mode, state), reference.icon.availableSizes(mode, state));
    QCOMPARE(icon.actualSize(size, mode, state), reference.icon.actualSize(size, mode, state));
}

void PictureIconEngineTest::pictureThatCannotBeReadIsNull()
{
    const QIcon icon(new PictureIconEngine(sizes, [](int) { return QImage(); }));
    QVERIFY(icon.pixmap(QSize(24, 24), 1.0).isNull());
}

QTEST_MAIN(PictureIconEngineTest)
#include "test_pictureiconengine.moc"
