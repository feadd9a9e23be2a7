// SPDX-License-Identifier: MIT
#include "dictionary/latin1fold.h"

#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <cctype>
#include <clocale>

using namespace Qt::StringLiterals;

using teskel::foldByte;
using teskel::foldedCompare;

class TestLatin1Fold : public QObject
{
    Q_OBJECT

private slots:
    void foldsLatin1();
    void foldsTheSameInEveryLocale_data();
    void foldsTheSameInEveryLocale();
    void compares_data();
    void compares();
    void comparesAtMostSoManyBytes();
};

// Against Qt's Unicode tables, which know the capital of every Latin-1 letter.
void TestLatin1Fold::foldsLatin1()
{
    for (int byte = 0; byte < 256; ++byte) {
        const QChar upper = QChar(byte).toUpper();
        const int expected = byte != 0xB5 && upper.unicode() < 256 ? upper.unicode() : byte;
        QCOMPARE(int{foldByte(static_cast<unsigned char>(byte))}, expected);
    }
    QCOMPARE(foldByte(0xF7), 0xF7); // division sign
    QCOMPARE(foldByte(0xFF), 0xFF); // its capital is no Latin-1 letter
    QCOMPARE(foldByte(0xDF), 0xDF); // sharp s
}

void TestLatin1Fold::foldsTheSameInEveryLocale_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("characters");
    QTest::addColumn<int>("lower");
    QTest::addColumn<int>("upper"); // as that locale has it
    QTest::newRow("Turkish") << u"tr_TR"_s << u"ISO-8859-9"_s << int{'i'} << 0xDD;
    QTest::newRow("German") << u"de_DE"_s << u"ISO-8859-1"_s << 0xE4 << 0xC4;
    QTest::newRow("Czech") << u"cs_CZ"_s << u"ISO-8859-2"_s << 0xB1 << 0xA1;
}

// Locales are made on the spot: few machines have those with eight bits installed.
void TestLatin1Fold::foldsTheSameInEveryLocale()
{
    QFETCH(QString, language);
    QFETCH(QString, characters);
    QFETCH(int, lower);
    QFETCH(int, upper);
    const QTemporaryDir directory;
    const QString name = language + QLatin1Char('.') + characters;
    const int made = QProcess::execute(
        u"localedef"_s, {u"-i"_s, language, u"-f"_s, characters, directory.filePath(name)});
    if (made != 0)
        QSKIP("the sources of locales are not installed (Debian package: locales)");
    std::array<unsigned char, 256> expected{};
    for (std::size_t byte = 0; byte < expected.size(); ++byte)
        expected[byte] = foldByte(static_cast<unsigned char>(byte));
    qputenv("LOCPATH", directory.path().toLocal8Bit());
    const auto restore = qScopeGuard([] {
        std::setlocale(LC_ALL, "C");
        qunsetenv("LOCPATH");
    });
    QVERIFY(std::setlocale(LC_ALL, qPrintable(name)));
    QCOMPARE(std::toupper(lower), upper); // the locale holds
    for (std::size_t byte = 0; byte < expected.size(); ++byte)
        QCOMPARE(foldByte(static_cast<unsigned char>(byte)), expected[byte]);
    QCOMPARE(foldedCompare("istanbul\xE4", "ISTANBUL\xC4"), 0);
    QVERIFY(foldedCompare("i", "\xDD") < 0);
    QVERIFY(foldedCompare("\xB1", "\xA1") > 0);
}

void TestLatin1Fold::compares_data()
{
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<int>("sign");
    QTest::newRow("equal but for case") << QByteArray("apple") << QByteArray("APPLE") << 0;
    QTest::newRow("nothing is ignored") << QByteArray("ab") << QByteArray("a-b") << 1;
    QTest::newRow("shorter is less") << QByteArray("house") << QByteArray("houses") << -1;
    QTest::newRow("empty is least") << QByteArray() << QByteArray(" ") << -1;
    QTest::newRow("both empty") << QByteArray() << QByteArray() << 0;
    QTest::newRow("bytes above 127 are greater") << QByteArray("\xE4") << QByteArray("z") << 1;
    QTest::newRow("accents fold") << QByteArray("\xE4"
                                                "rger")
                                  << QByteArray("\xC4RGER") << 0;
    QTest::newRow("underscore after capitals") << QByteArray("a_b") << QByteArray("azb") << 1;
}

void TestLatin1Fold::compares()
{
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(int, sign);
    const auto signOf = [](int value) { return (value > 0) - (value < 0); };
    QCOMPARE(signOf(foldedCompare(a.constData(), b.constData())), sign);
    QCOMPARE(signOf(foldedCompare(b.constData(), a.constData())), -sign);
}

void TestLatin1Fold::comparesAtMostSoManyBytes()
{
    QCOMPARE(foldedCompare("house-boat", "HOUSE", 5), 0);
    QVERIFY(foldedCompare("house-boat", "HOUSE", 6) > 0);
    QVERIFY(foldedCompare("ho", "house", 5) < 0);
    QCOMPARE(foldedCompare("ab", "AB", 100), 0);
    QCOMPARE(foldedCompare("a", "b", 0), 0);
    QCOMPARE(foldedCompare("ab", "AB", teskel::wholeText), 0);
    QVERIFY(foldedCompare("abc", "AB", teskel::wholeText) > 0);
}

QTEST_GUILESS_MAIN(TestLatin1Fold)
#include "test_latin1fold.moc"
