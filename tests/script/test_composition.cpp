// SPDX-License-Identifier: MIT
#include "script/composition.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype mostMarks = 30;

/// Of characters that sorting may have to move past each other.
qsizetype longestRunOfMarks(const QString& text)
{
    qsizetype longest = 0;
    qsizetype length = 0;
    for (const char32_t character : text.normalized(QString::NormalizationForm_D).toUcs4()) {
        length = QChar::combiningClass(character) != 0 ? length + 1 : 0;
        longest = std::max(longest, length);
    }
    return longest;
}

} // namespace

class TestComposition : public QObject
{
    Q_OBJECT

private slots:
    void composes_data();
    void composes();
    void runsOfMarksAreDivided_data();
    void runsOfMarksAreDivided();
};

void TestComposition::composes_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << QString();
    QTest::newRow("letters") << u"house \u0434\u0430 \U0001F600"_s;
    QTest::newRow("letter and mark") << u"Mu\u0308he"_s;
    QTest::newRow("marks that change places") << u"a\u0316\u0301 b\u0301\u0316"_s;
    QTest::newRow("mark first") << u"\u0308a"_s;
    QTest::newRow("hangul") << u"\u1112\u1161\u11AB"_s;
    QTest::newRow("other spelling of a letter") << u"\u212B \u2126"_s;
    QTest::newRow("mark that is two") << u"a\u0344"_s;
    QTest::newRow("as many marks as stay together")
        << u'b' + u"\u0301\u0316"_s.repeated(mostMarks / 2) + u'c';
    QTest::newRow("vowel signs that are no marks to sort") << u'b' + u"\u09CB"_s.repeated(99);
    QTest::newRow("lone surrogates") << QString(QChar(0xD83D)) + u'a' + QChar(0xDE00);
}

void TestComposition::composes()
{
    QFETCH(QString, text);
    QCOMPARE(teskel::composed(text), text.normalized(QString::NormalizationForm_C));
}

void TestComposition::runsOfMarksAreDivided_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("one kind") << u'b' + u"\u0301"_s.repeated(31);
    QTest::newRow("one of them composed")
        << u'e' + u"\u0301"_s.repeated(31) + u'e' + u"\u0316"_s.repeated(32);
    QTest::newRow("two kinds in turn") << u'b' + u"\u0301\u0316"_s.repeated(5000) + u"c"_s;
    QTest::newRow("no letter") << u"\u0301\u0316"_s.repeated(50);
    QTest::newRow("composed letters") << u"\u1F82"_s + u"\u0316"_s.repeated(40);
    QTest::newRow("marks that are two") << u'b' + u"\u0344\u0F73\u0316"_s.repeated(40);
    QTest::newRow("marks beyond U+FFFF") << u'b' + u"\U0001D165\U0001D16E"_s.repeated(40);
}

void TestComposition::runsOfMarksAreDivided()
{
    QFETCH(QString, text);
    const QString result = teskel::composed(text);
    QCOMPARE(longestRunOfMarks(text) > mostMarks, true);
    QVERIFY(longestRunOfMarks(result) <= mostMarks);
    QCOMPARE(teskel::composed(result), result);
    const QString divider(QChar(0x034F));
    const auto sorted = [&](QString all) {
        all = all.remove(divider).normalized(QString::NormalizationForm_D);
        std::sort(all.begin(), all.end());
        return all;
    };
    QCOMPARE(sorted(result), sorted(text));
    // No more are written than it takes.
    QVERIFY(result.count(divider) <= 2 * text.size() / mostMarks);
}

QTEST_GUILESS_MAIN(TestComposition)
#include "test_composition.moc"
