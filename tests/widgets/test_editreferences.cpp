// SPDX-License-Identifier: MIT
// What Latin-1 lacks, and digits, come as references made of letters; the view shows characters.
#include "script/letterreference.h"
#include "widgets/article/qteskeledit.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace
{

QString reference(char32_t character)
{
    return QString::fromStdString(teskel::letterReference(character));
}

/// The text with references for the characters that `isReferred` picks.
template<typename IsReferred>
QString withReferences(const QString& text, IsReferred isReferred)
{
    QString source;
    for (const char32_t character : text.toUcs4()) {
        if (isReferred(character))
            source += reference(character);
        else
            source += QChar::fromUcs4(character);
    }
    return source;
}

/// As lexicons hold it.
QString stored(const QString& text)
{
    return withReferences(text, [](char32_t character) {
        return character > 0xFF || (character >= '1' && character <= '9');
    });
}

/// With no character by itself but those that only markup has.
QString disguised(const QString& markup)
{
    return withReferences(markup, [](char32_t character) {
        return character >= ' ' && !u"<>&\"'"_s.contains(QChar::fromUcs4(character));
    });
}

} // namespace

class TestEditReferences : public QObject
{
    Q_OBJECT

private slots:
    void charactersAreShownMarkedCopiedAndReadOut_data();
    void charactersAreShownMarkedCopiedAndReadOut();
    void textGivesBackTheReferences();
    void markupByReferencesIsText_data();
    void markupByReferencesIsText();
    void whatTheViewCannotShowIsReplaced();
    void referencesInsideTagsAreRead();
    void disguisedMarkupIsShownAndLimitedAsItself_data();
    void disguisedMarkupIsShownAndLimitedAsItself();
    void paragraphsRunTheirWay_data();
    void paragraphsRunTheirWay();
    void onlyRichTextHasReferences_data();
    void onlyRichTextHasReferences();
};

void TestEditReferences::charactersAreShownMarkedCopiedAndReadOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("digits") << u"a 10-year lease, 24/7"_s;
    QTest::newRow("Russian") << u"вода (пить)"_s;
    QTest::newRow("Greek") << u"ύδωρ"_s;
    QTest::newRow("Arabic") << u"سَلَام 3"_s;
    QTest::newRow("Hindi") << u"पानी"_s;
    QTest::newRow("Japanese") << u"水を飲む"_s;
    QTest::newRow("phonetic") << u"/ˈwɔːtə/"_s;
    QTest::newRow("emoji") << u"😀 and 👩\u200D🚀"_s;
    QTest::newRow("combining mark") << u"вода\u0301"_s;
    QTest::newRow("quotes") << u"\u201Ea\u201C"_s;
}

void TestEditReferences::charactersAreShownMarkedCopiedAndReadOut()
{
    QFETCH(QString, text);
    QTeskelEdit edit;
    const QString source = stored(text);
    QVERIFY(source != text);
    edit.setText("<p><b>word</b></p><p>"_L1 + source);
    const QString expected = "word\n"_L1 + text;
    QCOMPARE(edit.toPlainText(), expected);
    edit.selectAll();
    QCOMPARE(edit.markedText(), expected);
    QApplication::clipboard()->clear();
    edit.copy();
    QCOMPARE(QApplication::clipboard()->text(), expected);
    auto* const accessible = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(accessible != nullptr && accessible->textInterface() != nullptr);
    auto* const read = accessible->textInterface();
    QCOMPARE(read->text(0, read->characterCount()), expected);
}

void TestEditReferences::textGivesBackTheReferences()
{
    QTeskelEdit edit;
    const QString source = u"<p>&_ede; &_db; &_; <h&_db;>x</h&_db;>"_s;
    edit.setText(source);
    QCOMPARE(edit.text(), source);
    edit.setTextFormat(Qt::PlainText);
    QCOMPARE(edit.text(), source);
}

void TestEditReferences::markupByReferencesIsText_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("shown");
    QTest::newRow("tag") << u"&_dm;b&_do;x&_dm;/b&_do;"_s << u"<b>x</b>"_s;
    QTest::newRow("tag begun by a reference") << u"&_dm;b>x"_s << u"<b>x"_s;
    QTest::newRow("entity") << u"&_cg;lt;"_s << u"&lt;"_s;
    QTest::newRow("reference") << u"&_cg;_db;"_s << u"&_db;"_s;
    QTest::newRow("quotes") << u"&_cc;a&_cc; &_ch;b&_ch;"_s << u"\"a\" 'b'"_s;
    QTest::newRow("quotes in an attribute")
        << u"<font face=\"a&_cc; color=&_cc;red\">x</font>"_s << u"x"_s;
    QTest::newRow("end of a tag in an attribute")
        << u"<font face=\"a&_cc;&_do;&_dm;b&_do;\">x</font>"_s << u"x"_s;
    QTest::newRow("malformed") << u"&_x; &_DB; &_db"_s << u"&_x; &_DB; &_db"_s;
}

void TestEditReferences::markupByReferencesIsText()
{
    QFETCH(QString, source);
    QFETCH(QString, shown);
    QTeskelEdit edit;
    edit.setText(source);
    QCOMPARE(edit.toPlainText(), shown);
    QTextCursor cursor(edit.document());
    cursor.movePosition(QTextCursor::End);
    QVERIFY(cursor.charFormat().fontWeight() != int(QFont::Bold));
    QVERIFY(!cursor.charFormat().hasProperty(QTextFormat::ForegroundBrush));
}

void TestEditReferences::whatTheViewCannotShowIsReplaced()
{
    QTeskelEdit edit;
    edit.setText(u"a&_a;&_caci;&_cacj;&_caco;&_nidn;&_noaa;&_pnna;&_pppppp;z"_s);
    QCOMPARE(edit.toPlainText(), u"a"_s + QString(8, QChar::ReplacementCharacter) + u"z"_s);
    QCOMPARE(edit.document()->blockCount(), 1);
}

void TestEditReferences::referencesInsideTagsAreRead()
{
    QTeskelEdit edit;
    edit.setText(u"<h&_db;>title</h&_db;><p><font color=\"#0000&_dd;&_dd;\">x"_s);
    QCOMPARE(edit.document()->firstBlock().blockFormat().headingLevel(), 1);
    QTextCursor cursor(edit.document());
    cursor.movePosition(QTextCursor::End);
    QCOMPARE(cursor.charFormat().foreground().color(), QColor(0, 0, 0x33));
}

void TestEditReferences::disguisedMarkupIsShownAndLimitedAsItself_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("article")
        << u"<p><b>word</b></p><p><b><font color=\"#0000FF\">1.</font></b> a <i>b</i>"_s;
    QTest::newRow("list") << u"<ul><li>a<li>b</ul><ol type=a><li>c</ol>"_s;
    QTest::newRow("table") << u"<table><tr><td colspan=2>a<tr><td>b<td>c</table>"_s;
    QTest::newRow("style") << u"<p style='margin-left: 12px; color: #123456'>x"_s;
    QTest::newRow("deep nesting") << u"<div>"_s.repeated(5000) + u'x';
    QTest::newRow("tables in tables") << u"<table><tr><td>"_s.repeated(200) + u'x';
    QTest::newRow("cell as wide as memory") << u"<table><tr><td colspan=999999999>x</table>"_s;
    QTest::newRow("picture as large as memory") << u"<img width=999999999 height=999999999>"_s;
    QTest::newRow("large letters") << u"<span style='font-size:99999px'>x</span>"_s;
}

void TestEditReferences::disguisedMarkupIsShownAndLimitedAsItself()
{
    QFETCH(QString, markup);
    QTeskelEdit plain;
    plain.setText(markup);
    QTeskelEdit edit;
    edit.setText(disguised(markup));
    QCOMPARE(edit.toHtml(), plain.toHtml());
}

void TestEditReferences::paragraphsRunTheirWay_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("Latin") << u"water 水"_s << Qt::LeftToRight;
    QTest::newRow("Russian") << u"вода"_s << Qt::LeftToRight;
    QTest::newRow("Arabic") << u"ماء (water)"_s << Qt::RightToLeft;
    QTest::newRow("Hebrew") << u"מים"_s << Qt::RightToLeft;
    QTest::newRow("Arabic behind a digit") << u"10 ماء"_s << Qt::RightToLeft;
    QTest::newRow("right-to-left mark") << u"\u200Fabc"_s << Qt::RightToLeft;
}

void TestEditReferences::paragraphsRunTheirWay()
{
    QFETCH(QString, text);
    QFETCH(Qt::LayoutDirection, direction);
    QTeskelEdit edit;
    edit.setText("<p><b>word</b></p><p>"_L1 + stored(text));
    QCOMPARE(edit.document()->firstBlock().textDirection(), Qt::LeftToRight);
    QCOMPARE(edit.document()->lastBlock().textDirection(), direction);
}

void TestEditReferences::onlyRichTextHasReferences_data()
{
    QTest::addColumn<Qt::TextFormat>("format");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("shown");
    QTest::newRow("rich") << Qt::RichText << u"&_ede;"_s << u"\u0434"_s;
    QTest::newRow("plain") << Qt::PlainText << u"<b>&_ede;</b>"_s << u"<b>&_ede;</b>"_s;
    QTest::newRow("looks plain") << Qt::AutoText << u"&_ede;"_s << u"&_ede;"_s;
    QTest::newRow("looks rich") << Qt::AutoText << u"<b>&_ede;</b>"_s << u"\u0434"_s;
}

void TestEditReferences::onlyRichTextHasReferences()
{
    QFETCH(Qt::TextFormat, format);
    QFETCH(QString, source);
    QFETCH(QString, shown);
    QTeskelEdit edit;
    edit.setTextFormat(format);
    edit.setText(source);
    QCOMPARE(edit.toPlainText(), shown);
}

QTEST_MAIN(TestEditReferences)
#include "test_editreferences.moc"
