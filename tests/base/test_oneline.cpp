// SPDX-License-Identifier: MIT
#include "base/oneline.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// A name is shown on one line and in its own direction, whatever characters it has.
class TestOneLine : public QObject
{
    Q_OBJECT

private slots:
    void blankStandsForEachCharacterThatDisturbs_data();
    void blankStandsForEachCharacterThatDisturbs();
    void everyOtherCharacterStays_data();
    void everyOtherCharacterStays();
};

void TestOneLine::blankStandsForEachCharacterThatDisturbs_data()
{
    QTest::addColumn<char16_t>("character");
    QTest::newRow("NUL") << u'\0';
    QTest::newRow("tab") << u'\t';
    QTest::newRow("line feed") << u'\n';
    QTest::newRow("carriage return") << u'\r';
    QTest::newRow("escape") << u'\x1B';
    QTest::newRow("last of the ASCII controls") << u'\x1F';
    QTest::newRow("delete") << u'\x7F';
    QTest::newRow("next line") << u'\x85';
    QTest::newRow("last of the Latin-1 controls") << u'\x9F';
    QTest::newRow("line separator") << u'\u2028';
    QTest::newRow("paragraph separator") << u'\u2029';
    QTest::newRow("left-to-right embedding") << u'\u202A';
    QTest::newRow("right-to-left embedding") << u'\u202B';
    QTest::newRow("end of an embedding") << u'\u202C';
    QTest::newRow("left-to-right override") << u'\u202D';
    QTest::newRow("right-to-left override") << u'\u202E';
    QTest::newRow("left-to-right isolate") << u'\u2066';
    QTest::newRow("right-to-left isolate") << u'\u2067';
    QTest::newRow("first strong isolate") << u'\u2068';
    QTest::newRow("end of an isolate") << u'\u2069';
}

void TestOneLine::blankStandsForEachCharacterThatDisturbs()
{
    QFETCH(char16_t, character);
    const QChar one(character);
    QVERIFY(teskel::disturbsLine(one));
    QCOMPARE(teskel::oneLine(u"Eng"_s + one + u"2Ger.PDB"_s), u"Eng 2Ger.PDB"_s);
    QCOMPARE(teskel::oneLine(QString(3, one)), u"   "_s);
    QCOMPARE(teskel::oneLine(one + u"a"_s + one), u" a "_s);
}

void TestOneLine::everyOtherCharacterStays_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing") << QString();
    QTest::newRow("ASCII") << u" !\"&<>~Eng2Ger.PDB"_s;
    QTest::newRow("several blanks") << u"a  b "_s;
    QTest::newRow("first behind the Latin-1 controls") << u"a\u00A0b"_s;
    QTest::newRow("Latin-1") << u"Wörter für ÿ"_s;
    QTest::newRow("right to left") << u"\u05D0\u05D1 \u0627\u0628"_s;
    QTest::newRow("marks of direction") << u"a\u200E\u05D0\u200F"_s;
    QTest::newRow("joiners") << u"\u0915\u094D\u200D\u0937 a\u200Cb"_s;
    QTest::newRow("beyond 16 bits") << u"\U0001D11E \U00010900"_s;
    QTest::newRow("soft hyphen") << u"a\u00ADb"_s;
}

void TestOneLine::everyOtherCharacterStays()
{
    QFETCH(QString, name);
    QCOMPARE(teskel::oneLine(name), name);
}

QTEST_APPLESS_MAIN(TestOneLine)
#include "test_oneline.moc"
