// SPDX-License-Identifier: MIT
#include "files/reversename.h"

#include <QTest>

/// The naming rule that pairs a dictionary with its reverse.
class ReverseNameTest : public QObject
{
    Q_OBJECT

private slots:
    void rule_data();
    void rule();
    void wellFormedNamesComeBackAfterTwoTurns_data();
    void wellFormedNamesComeBackAfterTwoTurns();
};

void ReverseNameTest::rule_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reverse");
    const auto row = [](const char* tag, const char* name, const char* reverse) {
        QTest::newRow(tag) << QString::fromUtf8(name) << QString::fromUtf8(reverse);
    };
    row("plain", "Eng2Ger", "Ger2Eng");
    row("Gold", "Eng2GerGold", "Ger2EngGold");
    row("Pro", "Eng2GerPro", "Ger2EngPro");
    row("suffix after _", "en2de_small", "de2en_small");
    row("closing _", "en2de_", "de2en_");
    row("empty", "", "");
    row("no 2", "EngGer", "");
    row("no 2, only an edition", "Gold", "");
    row("no 2, closing _", "EngGer_", "");
    row("first 2 splits", "Eng2Ger2Fr", "Ger2Fr2Eng");
    row("left part empty", "2Eng", "Eng2");
    row("right part empty", "Eng2", "2Eng");
    row("only a 2", "2", "2");
    row("edition before _ stays in the base", "Eng2GerGold_x", "GerGold2Eng_x");
    row("Pro before _ stays in the base", "Eng2GerPro_x", "GerPro2Eng_x");
    row("Gold is cut where it first stands", "Gold2GerGold", "2Gold");
    row("Gold twice loses what lies between", "a2bGoldcGold", "b2aGold");
    row("Pro twice loses what lies between", "a2bProcPro", "b2aPro");
    row("closing _ cuts at the first _", "a2b_c_", "b2a_");
    row("several _", "a2b_c_d", "b2a_c_d");
    row("only 2 in the suffix", "Eng_v2", "Eng2Eng_v2");
    row("only 2 lies between", "Gold2Gold", "2Gold");
    row("only 2 after the first _", "_2_", "2_");
    row("edition in other case", "Eng2GerGOLD", "GerGOLD2Eng");
    row("Gold wins over Pro", "a2bProGold", "bPro2aGold");
    row("Pro wins over _", "a_2bPro", "b2a_Pro");
    row("beyond Latin-1", "рус2анг", "анг2рус");
    row("markup", "<b>x2y&z", "y&z2<b>x");
}

void ReverseNameTest::rule()
{
    QFETCH(const QString, name);
    QFETCH(const QString, reverse);
    QCOMPARE(teskel::reverseDictionaryName(name), reverse);
}

void ReverseNameTest::wellFormedNamesComeBackAfterTwoTurns_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"Eng2Ger", "Eng2GerGold", "Eng2GerPro", "en2de_small", "en2de_"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void ReverseNameTest::wellFormedNamesComeBackAfterTwoTurns()
{
    QFETCH(const QString, name);
    const QString reverse = teskel::reverseDictionaryName(name);
    QVERIFY(reverse != name);
    QCOMPARE(teskel::reverseDictionaryName(reverse), name);
}

QTEST_APPLESS_MAIN(ReverseNameTest)
#include "test_reversename.moc"
