// SPDX-License-Identifier: MIT
#include "lexicon/text/plaintext.h"

#include <QTest>

class TestPlainText : public QObject
{
    Q_OBJECT

private slots:
    void markupBecomesPlain_data();
    void markupBecomesPlain();
};

void TestPlainText::markupBecomesPlain_data()
{
    QTest::addColumn<QByteArray>("markup");
    QTest::addColumn<QByteArray>("plain");
    const auto row = [](const char* name, const char* markup, const char* plain) {
        QTest::newRow(name) << QByteArray(markup) << QByteArray(plain);
    };
    row("nothing", "", "");
    row("plain text, UTF-8", "Bäume\nд", "Bäume\nд");
    row("tags", "a <i>b</i> <font color=\"&_db;\">c</font><!-- d -->", "a b c");
    row("tags that end a line", "a<br>b<P>c<br/>d", "a\nb\nc\nd");
    row("lists and tables end lines", "<dl><dt>a<dd>b</dl><ol><li>c</ol><tr><td>d<td>e",
        "\na\nb\n\nc\n\nd\ne");
    row("no tag", "1 < 2 <3", "1 < 2 <3");
    row("tag without an end", "a <b", "a <b");
    row("basic entities", "&lt;&gt;&amp;&quot;", "<>&\"");
    row("entities of Latin-1", "&auml;&nbsp;&yuml;&frac12;&szlig;", "ä\u00A0ÿ½ß");
    row("entities beyond it", "&hellip;&alpha;&diams;", "…α♦");
    row("numbers", "&#1076;&#x434;", "дд");
    row("letter references", "&_db;&_ede;&_dm;", "1д<");
    row("what is no reference", "a & b &; &nothing; &_q; &amp", "a & b &; &nothing; &_q; &amp");
    row("escaped reference", "&amp;lt;", "&lt;");
}

void TestPlainText::markupBecomesPlain()
{
    QFETCH(QByteArray, markup);
    QFETCH(QByteArray, plain);
    QCOMPARE(QByteArray::fromStdString(teskel::plainText(markup.toStdString())), plain);
}

QTEST_APPLESS_MAIN(TestPlainText)
#include "test_plaintext.moc"
