// SPDX-License-Identifier: MIT
#include "lexicon/text/paragraphs.h"

#include <QTest>

class TestParagraphs : public QObject
{
    Q_OBJECT

private slots:
    void joinsWrappedLines_data();
    void joinsWrappedLines();
};

void TestParagraphs::joinsWrappedLines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("joined");
    const auto row = [](const char* name, const char* text, const char* joined) {
        QTest::newRow(name) << QByteArray(text) << QByteArray(joined);
    };
    row("hanging indent", "house\n    n 1: a b\n         c d\n         e\n    2: f\n       g\n",
        "house\n    n 1: a b c d e\n    2: f g\n");
    row("two digits", "   10. a\n       b\n", "   10. a b\n");
    row("less indented", "   1. a\n   b\n", "   1. a\n   b\n");
    row("more indented", "   1. a\n         Verse\n", "   1. a\n         Verse\n");
    row("behind another line", "   1. a\n         Verse\n      b\n",
        "   1. a\n         Verse\n      b\n");
    row("behind an empty line", "   1. a\n\n      b\n", "   1. a\n\n      b\n");
    row("no number", "   a\n   b\n", "   a\n   b\n");
    row("code", "   main()\n      return\n", "   main()\n      return\n");
    row("a number without words", "   1.\n      b\n", "   1.\n      b\n");
    row("no indent at all", "1. a\nb\n", "1. a\nb\n");
    row("no line feed at the end", "  1. a\n     b", "  1. a b\n");
    row("empty", "", "");
}

void TestParagraphs::joinsWrappedLines()
{
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(teskel::joinedLines(text.toStdString())), "joined");
}

QTEST_APPLESS_MAIN(TestParagraphs)
#include "test_paragraphs.moc"
