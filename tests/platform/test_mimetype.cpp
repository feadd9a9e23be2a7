// SPDX-License-Identifier: MIT
#include <QDir>
#include <QMimeDatabase>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class MimeTypeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void lexiconIsKnown_data();
    void lexiconIsKnown();

private:
    QTemporaryDir _directory;
};

void MimeTypeTest::initTestCase()
{
    // Beside the types that Qt knows there are only ours.
    const QString packages = _directory.filePath(u"mime/packages"_s);
    QVERIFY(QDir().mkpath(packages));
    QVERIFY(QFile::copy(QStringLiteral(TESKEL_MIME_TYPES), packages + u"/teskel.xml"_s));
    qputenv("XDG_DATA_HOME", _directory.path().toUtf8());
    qputenv("XDG_DATA_DIRS", "/nowhere");
}

void MimeTypeTest::lexiconIsKnown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("creator");
    QTest::addColumn<bool>("lexicon");
    QTest::newRow("lexicon") << u"Eng2Ger.PDB"_s << QByteArray("TSKL") << true;
    QTest::newRow("without an extension") << u"Eng2Ger"_s << QByteArray("TSKL") << true;
    QTest::newRow("another database") << u"memos"_s << QByteArray("memo") << false;
}

void MimeTypeTest::lexiconIsKnown()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, creator);
    QFile file(_directory.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("Eng2Ger").leftJustified(60, '\0') + "dict" + creator +
               QByteArray(200, '\0'));
    file.close();
    const QMimeDatabase database;
    const QMimeType type = database.mimeTypeForFile(file.fileName());
    QFETCH(bool, lexicon);
    QCOMPARE(type.name() == u"application/x-teskel-lexicon"_s, lexicon);
}

QTEST_GUILESS_MAIN(MimeTypeTest)
#include "test_mimetype.moc"
