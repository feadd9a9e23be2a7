// SPDX-License-Identifier: MIT
#include "widgets/article/qteskeledit.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
/// Counts how often a layout asks for a picture's size.
class MeasuredPicture : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    QSizeF intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                         const QTextFormat& /*format*/) override
    {
        ++measurements;
        return {10, 10};
    }
    void drawObject(QPainter* /*painter*/, const QRectF& /*rect*/, QTextDocument* /*document*/,
                    int /*position*/, const QTextFormat& /*format*/) override
    {
    }

    int measurements = 0;
};

/// Notes what the document asks for.
class SpyEdit : public QTeskelEdit
{
public:
    using QTeskelEdit::createMimeDataFromSelection;
    using QTeskelEdit::QTeskelEdit;
    QVariant loadResource(int type, const QUrl& name) override
    {
        asked << name;
        answers << QTeskelEdit::loadResource(type, name);
        return answers.last();
    }
    QList<QUrl> asked;
    QList<QVariant> answers;
};

bool hasColour(const QImage& image, const QColor& colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(double(colour.redF())) + 0.7152 * linear(double(colour.greenF())) +
           0.0722 * linear(double(colour.blueF()));
}

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return qMax(first, second) / qMin(first, second);
}

QPalette darkPalette()
{
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    return dark;
}
} // namespace

class TestEdit : public QObject
{
    Q_OBJECT

private slots:
    void isAReadOnlyViewWithItsName();
    void textIsExactlyWhatWasSet_data();
    void textIsExactlyWhatWasSet();
    void textIsWhatIsShownAfterOtherChanges_data();
    void textIsWhatIsShownAfterOtherChanges();
    void textOutlivesWhatChangesNoContents();
    void plainTextIsParsedAsMarkup();
    void formatsCanBeChosen();
    void clearSetsTheEmptyText();
    void clearOfAnEmptyViewChangesNothing();
    void clearTakesAwayWhatTheDocumentWasGiven();
    void setTextEndsTheSelectionAndScrollsUp();
    void textFillsTheRoomThatTheBarLeaves();
    void longTextIsLaidOutOnce();
    void textOfOneLongParagraphIsLaidOutTwice();
    void manyParagraphsOfNoHeightBringNoBar_data();
    void manyParagraphsOfNoHeightBringNoBar();
    void markedTextMapsSeparators_data();
    void markedTextMapsSeparators();
    void selectionIsCopiedAsPlainTextAlone_data();
    void selectionIsCopiedAsPlainTextAlone();
    void senseNumberIsBoldBlue();
    void italicTagsShowItalics();
    void pictureFromAFileIsNotLoaded();
    void picturesHaveTheirRoomAndAreNotLookedFor();
    void styleSheetFromAFileIsNotLoaded();
    void answersAreEmptyButNotNull();
    void linksAreNotFollowed();
    void pageIsLight_data();
    void pageIsLight();
    void pageStaysLightWhenThePaletteDarkens();
    void lightPaletteIsKept();
    void fontSurvivesSetText();
    void damagedTextEndsInASentenceThatSaysSo_data();
    void damagedTextEndsInASentenceThatSaysSo();
};

void TestEdit::isAReadOnlyViewWithItsName()
{
    QTeskelEdit edit(nullptr, "article");
    QCOMPARE(edit.objectName(), u"article"_s);
    QVERIFY(edit.isReadOnly());
    QVERIFY(!edit.isUndoRedoEnabled());
    QVERIFY(!edit.hasMarkedText());
    QVERIFY(edit.markedText().isEmpty());
    edit.setText(u"word"_s);
    QTest::keyClicks(&edit, u"x"_s);
    QCOMPARE(edit.toPlainText(), u"word"_s);
}

void TestEdit::textIsExactlyWhatWasSet_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("empty") << QString();
    QTest::addRow("article") << u"<p><b>house</b></p><p> home</p><p>\nx"_s;
    QTest::addRow("entities") << u"R&D &lt; &nosuch; &#x41"_s;
    QTest::addRow("broken markup") << u"a < b <font color=> </p>"_s;
    QTest::addRow("control characters") << u"a\tb\nc"_s + QChar(0) + u'd';
    QTest::addRow("picture") << u"<img src='x.png'>"_s;
}

void TestEdit::textIsExactlyWhatWasSet()
{
    QFETCH(QString, text);
    QTeskelEdit edit;
    edit.setText(text);
    QCOMPARE(edit.text(), text);
}

void TestEdit::textIsWhatIsShownAfterOtherChanges_data()
{
    QTest::addColumn<Qt::TextFormat>("format");
    QTest::addRow("rich text") << Qt::RichText;
    QTest::addRow("plain text") << Qt::PlainText;
}

void TestEdit::textIsWhatIsShownAfterOtherChanges()
{
    QFETCH(Qt::TextFormat, format);
    QTeskelEdit edit;
    edit.setTextFormat(format);
    edit.setText(u"<b>first</b>"_s);
    QTextEdit& base = edit;
    const auto shown = [&] { return format == Qt::PlainText ? base.toPlainText() : base.toHtml(); };

    base.setHtml(u"<i>second</i>"_s);
    QVERIFY(base.toPlainText() == QLatin1String("second"));
    QCOMPARE(edit.text(), shown());
    edit.setText(u"third"_s);
    QCOMPARE(edit.text(), u"third"_s);
    base.append(u"fourth"_s);
    QCOMPARE(edit.toPlainText(), u"third\nfourth"_s);
    QCOMPARE(edit.text(), shown());
    base.clear();
    QCOMPARE(edit.text(), QString());
    QTextCursor(edit.document()).insertText(u"fifth"_s);
    QCOMPARE(edit.text(), shown());
    base.setText(QString());
    QCOMPARE(edit.text(), QString());
    QTextDocument other(u"sixth"_s);
    base.setDocument(&other);
    QCOMPARE(edit.text(), shown());
    edit.setText(u"seventh"_s);
    QCOMPARE(edit.text(), u"seventh"_s);
    // What is shown is what another format reads.
    base.setPlainText(u"<b>eighth</b>"_s);
    edit.setTextFormat(Qt::AutoText);
    QVERIFY(edit.toPlainText().contains(QLatin1String("eighth")));
    base.setDocument(nullptr);
}

void TestEdit::textOutlivesWhatChangesNoContents()
{
    QTeskelEdit edit;
    const QString text = u"<p>word <img src=x>"_s;
    edit.setText(text);
    edit.resize(100, 100);
    edit.show();
    edit.grab();
    edit.selectAll();
    edit.copy();
    QFont font = edit.font();
    font.setPointSize(25);
    edit.setFont(font);
    edit.setPalette(darkPalette());
    edit.setLineWrapMode(QTextEdit::NoWrap);
    edit.grab();
    QCOMPARE(edit.text(), text);
}

void TestEdit::plainTextIsParsedAsMarkup()
{
    QTeskelEdit edit;
    edit.setText(u"two\nlines &amp; more"_s);
    QCOMPARE(edit.toPlainText(), u"two lines & more"_s);
}

void TestEdit::formatsCanBeChosen()
{
    QTeskelEdit edit;
    QCOMPARE(edit.textFormat(), Qt::RichText);
    edit.setText(u"<b>x</b>"_s);
    edit.setTextFormat(Qt::PlainText);
    QCOMPARE(edit.toPlainText(), u"<b>x</b>"_s);
    edit.setTextFormat(Qt::AutoText);
    QCOMPARE(edit.toPlainText(), u"x"_s);
}

void TestEdit::clearSetsTheEmptyText()
{
    QTeskelEdit edit;
    edit.setText(u"word"_s);
    edit.selectAll();
    edit.clear();
    QVERIFY(edit.text().isEmpty());
    QVERIFY(edit.toPlainText().isEmpty());
    QVERIFY(!edit.hasMarkedText());
}

void TestEdit::clearOfAnEmptyViewChangesNothing()
{
    QTeskelEdit edit;
    edit.setText(u"word"_s);
    const QSignalSpy changes(edit.document(), &QTextDocument::contentsChanged);
    edit.clear();
    const auto once = changes.count();
    QVERIFY(once > 0);
    edit.clear();
    QCOMPARE(changes.count(), once);
}

void TestEdit::clearTakesAwayWhatTheDocumentWasGiven()
{
    QTeskelEdit edit;
    edit.clear();
    edit.setPlainText(u"other"_s);
    edit.clear();
    QVERIFY(edit.toPlainText().isEmpty());
    QVERIFY(edit.text().isEmpty());
}

void TestEdit::setTextEndsTheSelectionAndScrollsUp()
{
    QTeskelEdit edit;
    edit.resize(100, 60);
    edit.show();
    const QString text = u"<p>line</p>"_s.repeated(50);
    edit.setText(text);
    edit.selectAll();
    edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->maximum());
    QVERIFY(edit.verticalScrollBar()->value() > 0);
    edit.setText(text + text);
    QVERIFY(!edit.hasMarkedText());
    QCOMPARE(edit.verticalScrollBar()->value(), 0);
}

void TestEdit::textFillsTheRoomThatTheBarLeaves()
{
    QTeskelEdit edit;
    edit.resize(100, 60);
    edit.show();
    const QString line = u"<p>line</p>"_s;
    const QString lines = line.repeated(50);
    for (const QString& text : {line, lines, lines + lines, line, lines, QString()}) {
        edit.setText(text);
        QCOMPARE(edit.verticalScrollBar()->isVisible(), text.size() > line.size());
        QCOMPARE(edit.document()->pageSize().width(), edit.viewport()->width());
        QVERIFY(edit.document()->size().width() <= edit.viewport()->width());
    }
    edit.resize(200, 60);
    QCOMPARE(edit.document()->pageSize().width(), edit.viewport()->width());
}

void TestEdit::longTextIsLaidOutOnce()
{
    QTeskelEdit edit;
    MeasuredPicture picture;
    edit.document()->documentLayout()->registerHandler(QTextFormat::ImageObject, &picture);
    edit.resize(100, 60);
    edit.show();
    const QString start = u"<p><img src=x.png>line</p>"_s;
    edit.setText(start);
    QVERIFY(!edit.verticalScrollBar()->isVisible());
    const int once = std::exchange(picture.measurements, 0);
    QVERIFY(once > 0);
    const QString paragraphs = u"<p>line</p>"_s.repeated(50);
    for (const QString& before : {u"<p>word"_s, start + paragraphs}) {
        edit.setText(before);
        picture.measurements = 0;
        edit.setText(start + paragraphs);
        QVERIFY(edit.verticalScrollBar()->isVisible());
        QCOMPARE(picture.measurements, once);
    }
}

void TestEdit::textOfOneLongParagraphIsLaidOutTwice()
{
    QTeskelEdit edit;
    MeasuredPicture picture;
    edit.document()->documentLayout()->registerHandler(QTextFormat::ImageObject, &picture);
    edit.resize(100, 60);
    edit.show();
    const QString start = u"<p><img src=x.png>line"_s;
    edit.setText(start);
    const int first = std::exchange(picture.measurements, 0);
    edit.resize(110, 60);
    const int again = std::exchange(picture.measurements, 0);
    QVERIFY(first > 0 && again > 0);
    edit.setText(start + u" line"_s.repeated(50));
    QVERIFY(edit.verticalScrollBar()->isVisible());
    QCOMPARE(picture.measurements, first + again);
}

void TestEdit::manyParagraphsOfNoHeightBringNoBar_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u"<p>"_s.repeated(50) + u"word"_s;
    QTest::newRow("side by side") << u"<table><tr>"_s + u"<td><p>a</p></td>"_s.repeated(8) +
                                         u"</tr></table>"_s;
}

void TestEdit::manyParagraphsOfNoHeightBringNoBar()
{
    QFETCH(const QString, text);
    QTeskelEdit edit;
    edit.resize(400, 80);
    edit.show();
    edit.setText(text);
    QVERIFY(!edit.verticalScrollBar()->isVisible());
    QCOMPARE(edit.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(edit.document()->pageSize().width(), edit.viewport()->width());
}

void TestEdit::markedTextMapsSeparators_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("marked");
    QTest::addRow("words") << u"<b>one</b> two"_s << u"one two"_s;
    QTest::addRow("paragraphs") << u"<p>one</p><p>two</p>"_s << u"one\ntwo"_s;
    QTest::addRow("line break") << u"one<br>two"_s << u"one\ntwo"_s;
    QTest::addRow("no-break space") << u"one&nbsp;two"_s << u"one\u00A0two"_s;
    QTest::addRow("rule") << u"one<hr>two"_s << u"one\n\ntwo"_s;
}

void TestEdit::markedTextMapsSeparators()
{
    QFETCH(QString, source);
    QFETCH(QString, marked);
    QTeskelEdit edit;
    edit.setText(source);
    edit.selectAll();
    QVERIFY(edit.hasMarkedText());
    QCOMPARE(edit.markedText(), marked);
    QCOMPARE(edit.selectedText(), marked);
    QVERIFY(edit.hasSelectedText());
}

void TestEdit::selectionIsCopiedAsPlainTextAlone_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("copied");
    QTest::addRow("tags") << u"<p><b>one</b> <i>two</i><p>three"_s << u"one two\nthree"_s;
    QTest::addRow("picture") << u"one<img src=x>two"_s << u"onetwo"_s;
    QTest::addRow("table") << u"<table><tr><td>one</table>"_s << u"\none\n"_s;
}

void TestEdit::selectionIsCopiedAsPlainTextAlone()
{
    QFETCH(QString, source);
    QFETCH(QString, copied);
    SpyEdit edit;
    edit.setText(source);
    edit.selectAll();
    QApplication::clipboard()->clear();
    edit.copy();
    const QMimeData* const clipboard = QApplication::clipboard()->mimeData();
    QCOMPARE(clipboard->formats(), QStringList(u"text/plain"_s));
    QCOMPARE(clipboard->text(), copied);
    // The mouse selection and dragging take the same.
    const std::unique_ptr<QMimeData> dragged(edit.createMimeDataFromSelection());
    QCOMPARE(dragged->formats(), QStringList(u"text/plain"_s));
    QCOMPARE(dragged->text(), copied);
}

void TestEdit::senseNumberIsBoldBlue()
{
    QTeskelEdit edit;
    edit.setText(u"<p><b><font color=\"#0000FF\">1.</font></b> house"_s);
    QTextCursor cursor(edit.document());
    cursor.setPosition(1);
    QCOMPARE(cursor.charFormat().foreground().color(), QColor(0, 0, 255));
    QCOMPARE(cursor.charFormat().fontWeight(), int(QFont::Bold));
    cursor.setPosition(5);
    QVERIFY(cursor.charFormat().fontWeight() != int(QFont::Bold));
}

void TestEdit::italicTagsShowItalics()
{
    QTeskelEdit edit;
    edit.setText(u"<p>one <i>two</i>"_s);
    QTextCursor cursor(edit.document());
    cursor.setPosition(6);
    QVERIFY(cursor.charFormat().fontItalic());
}

void TestEdit::pictureFromAFileIsNotLoaded()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(u"red.png"_s);
    QImage red(40, 40, QImage::Format_RGB32);
    red.fill(QColor(255, 0, 0));
    QVERIFY(red.save(path));
    for (const QString& source : {path, QUrl::fromLocalFile(path).toString()}) {
        for (const QString& markup :
             {u"<img src=\"%1\">"_s, u"<p style=\"background-image:url(%1)\">word word word</p>"_s,
              u"<table background=\"%1\"><tr><td>word</td></tr></table>"_s}) {
            SpyEdit edit;
            edit.resize(200, 200);
            edit.show();
            edit.setText(markup.arg(source));
            QVERIFY(!hasColour(edit.grab().toImage(), QColor(255, 0, 0)));
            // A null answer would send the document to the file itself.
            for (const QVariant& answer : std::as_const(edit.answers))
                QVERIFY(answer.isValid() && !answer.isNull());
        }
    }
}

void TestEdit::picturesHaveTheirRoomAndAreNotLookedFor()
{
    SpyEdit edit;
    edit.resize(400, 400);
    edit.show();
    edit.setText(u"<img src=/no/such.png width=70 height=90><img src=x.png>"_s);
    edit.grab();
    QVERIFY(edit.asked.isEmpty());
    QTextCursor cursor(edit.document());
    const int left = edit.cursorRect(cursor).left();
    cursor.setPosition(1);
    QCOMPARE(edit.cursorRect(cursor).left() - left, 70);
    cursor.setPosition(2);
    QCOMPARE(edit.cursorRect(cursor).left() - left, 70 + 16);
    QVERIFY(edit.document()->size().height() >= 90);
}

void TestEdit::styleSheetFromAFileIsNotLoaded()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(u"red.css"_s);
    QFile sheet(path);
    QVERIFY(sheet.open(QIODevice::WriteOnly));
    sheet.write("p, b, body { color: #ff0000; background-color: #ff0000 }");
    sheet.close();
    SpyEdit edit;
    edit.resize(200, 200);
    edit.show();
    edit.setText(u"<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">"
                 "</head><body><p>word</p></body></html>"_s.arg(path));
    QVERIFY(!edit.asked.isEmpty());
    QVERIFY(!hasColour(edit.grab().toImage(), QColor(255, 0, 0)));
    QCOMPARE(edit.toPlainText(), u"word"_s);
}

void TestEdit::answersAreEmptyButNotNull()
{
    QTeskelEdit edit;
    const QUrl url(u"http://example.org/x"_s);
    const QVariant image = edit.loadResource(QTextDocument::ImageResource, url);
    QVERIFY(image.isValid() && image.value<QImage>().isNull());
    for (const int type :
         {int(QTextDocument::StyleSheetResource), int(QTextDocument::HtmlResource),
          int(QTextDocument::MarkdownResource), int(QTextDocument::UserResource)}) {
        const QVariant answer = edit.loadResource(type, url);
        QVERIFY(answer.isValid() && !answer.isNull());
        QVERIFY(answer.toByteArray().isEmpty());
    }
}

void TestEdit::linksAreNotFollowed()
{
    QTeskelEdit edit;
    edit.resize(200, 100);
    edit.show();
    const QString text = u"<a href=\"file:///etc/passwd\">link link link</a>"_s;
    edit.setText(text);
    QVERIFY(!(edit.textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QTest::mouseClick(edit.viewport(), Qt::LeftButton, {},
                      edit.cursorRect().center() + QPoint(10, 0));
    QCOMPARE(edit.text(), text);
    QCOMPARE(edit.toPlainText(), u"link link link"_s);
}

void TestEdit::pageIsLight_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::addRow("light") << QPalette(QColor(240, 240, 240));
    QTest::addRow("dark") << darkPalette();
    QPalette grey;
    grey.setColor(QPalette::Base, QColor(128, 128, 128));
    QTest::addRow("grey") << grey;
}

void TestEdit::pageIsLight()
{
    QFETCH(QPalette, palette);
    QWidget parent;
    parent.setPalette(palette);
    QTeskelEdit edit(&parent);
    const QColor page = edit.palette().color(QPalette::Base);
    QVERIFY(contrast(page, QColor(0, 0, 255)) >= 4.5);
    QVERIFY(contrast(page, QColor(255, 0, 0)) >= 3.0);
    QVERIFY(contrast(page, edit.palette().color(QPalette::Text)) >= 7.0);
}

void TestEdit::pageStaysLightWhenThePaletteDarkens()
{
    QTeskelEdit edit;
    edit.resize(100, 100);
    edit.setText(u"word"_s);
    edit.show();
    const QPalette before = QApplication::palette();
    QApplication::setPalette(darkPalette());
    QTRY_VERIFY(edit.palette().color(QPalette::Window) == QColor(40, 40, 40));
    QCOMPARE(edit.palette().color(QPalette::Base), QColor(Qt::white));
    QCOMPARE(edit.palette().color(QPalette::Text), QColor(Qt::black));
    QCOMPARE(edit.grab().toImage().pixelColor(50, 80), QColor(Qt::white));
    QApplication::setPalette(before);
}

void TestEdit::lightPaletteIsKept()
{
    QPalette sepia;
    sepia.setColor(QPalette::Base, QColor(255, 250, 235));
    QWidget parent;
    parent.setPalette(sepia);
    QTeskelEdit edit(&parent);
    QCOMPARE(edit.palette().color(QPalette::Base), QColor(255, 250, 235));
}

void TestEdit::fontSurvivesSetText()
{
    QTeskelEdit edit;
    QFont font = edit.font();
    font.setPointSize(25);
    edit.setFont(font);
    edit.setText(u"<p>word"_s);
    QCOMPARE(edit.document()->defaultFont().pointSize(), 25);
}

void TestEdit::damagedTextEndsInASentenceThatSaysSo_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("one unbroken word") << QString(29'000, u'a');
    QTest::newRow("bold") << u"<b>"_s + QString(29'000, u'a');
    QTest::newRow("paragraphs") << u"</p><p>\n"_s.repeated(29'000);
    QTest::newRow("unknown entities") << u"&foobar;"_s.repeated(3'600);
    QTest::newRow("hidden") << u"<title>"_s + QString(29'000, u'a');
    QTest::newRow("a table") << u"<table>"_s + u"<tr><td>a"_s.repeated(3'000);
    QTest::newRow("a list") << u"<ul>"_s + u"<li>a"_s.repeated(6'000);
    QTest::newRow("beyond the limits") << u"<div>"_s.repeated(6'000);
}

void TestEdit::damagedTextEndsInASentenceThatSaysSo()
{
    QFETCH(QString, markup);
    const QString source = u"<p><b>word</b></p><p>"_s + markup;
    QTeskelEdit edit;
    edit.setText(source);
    static const QRegularExpression sentence(
        u"^The last [1-9][0-9]? % of this article are not shown: it seems to be damaged, "
        "and all of it would take too long\\.$"_s);
    const QTextBlock last = edit.document()->lastBlock();
    QVERIFY2(sentence.match(last.text()).hasMatch(), qPrintable(last.text()));
    QVERIFY(!QTextCursor(last).currentTable());
    QVERIFY(!last.textList());
    QVERIFY(last.begin().fragment().charFormat().fontItalic());
    QVERIFY(edit.toPlainText().contains(u"word"_s));
    QCOMPARE(edit.text(), source);
    QCOMPARE(edit.textCursor().position(), 0);

    edit.setText(u"<p>good"_s);
    QCOMPARE(edit.toPlainText(), u"good"_s);
}

QTEST_MAIN(TestEdit)
#include "test_edit.moc"
