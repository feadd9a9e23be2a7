// SPDX-License-Identifier: MIT
#include "script/romanizer.h"
#include "tests/support/warningcapture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace teskel::test;

class TestRomanizer : public QObject
{
    Q_OBJECT

private slots:
    void rulesThatAreRefusedGiveCodePointsAndOneWarning();
    void rulesAreAppliedInTheirOrder();
    void codePointsAreLetters();
    void rulesOfLexiconsAreTheSameForAll();
};

void TestRomanizer::rulesThatAreRefusedGiveCodePointsAndOneWarning()
{
    const WarningCapture warnings;
    const teskel::Romanizer romanizer("NFC; No-Such-Rules");
    QCOMPARE(romanizer.romanized(u"\u0434\U0001F600"), u"edebpgaa"_s);
    QCOMPARE(romanizer.romanized(u"\u0434"), u"ede"_s);
    QCOMPARE(warnings.count(u"Other scripts are not written in Latin letters: ICU reports "_s), 1);
}

void TestRomanizer::rulesAreAppliedInTheirOrder()
{
    const WarningCapture warnings;
    QCOMPARE(teskel::Romanizer("[:Cyrillic:] Remove; Greek-Latin").romanized(u"\u0434\u03B1"),
             u"\u03B1"_s);
    QCOMPARE(teskel::Romanizer("NFC; [:Cyrillic:] Remove; Greek-Latin").romanized(u"\u0434\u03B1"),
             u"a"_s);
    QCOMPARE(warnings.count(u"Other scripts"_s), 0);
}

void TestRomanizer::codePointsAreLetters()
{
    QCOMPARE(teskel::Romanizer::codePoints(u""), QString());
    QCOMPARE(teskel::Romanizer::codePoints(u"\u0434"), u"ede"_s);
    QCOMPARE(teskel::Romanizer::codePoints(u"\U0001F600\u2665"), u"bpgaacggf"_s);
    QCOMPARE(teskel::Romanizer::codePoints(QString(QChar(0xD83D))), u"pppn"_s);
}

void TestRomanizer::rulesOfLexiconsAreTheSameForAll()
{
    const WarningCapture warnings;
    QCOMPARE(&teskel::Romanizer::ofLexicons(), &teskel::Romanizer::ofLexicons());
    QCOMPARE(teskel::Romanizer::ofLexicons().romanized(u"\u0434\u0430"), u"da"_s);
    QCOMPARE(warnings.count(u"Other scripts"_s), 0);
}

QTEST_GUILESS_MAIN(TestRomanizer)
#include "test_romanizer.moc"
