// SPDX-License-Identifier: MIT
#include "widgets/article/qteskeledit.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>

namespace
{
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

private Q_SLOTS:
    void isAReadOnlyViewWithItsName();
    void textIsExactlyWhatWasSet_data();
    void textIsExactlyWhatWasSet();
    void textIsWhatIsShownAfterOtherChanges_data();
    void textIsWhatIsShownAfterOtherChanges();
    void textOutlivesWhatChangesNoContents();
    void plainTextIsParsedAsMarkup();
    void formatsCanBeChosen();
    void clearSetsTheEmptyText();
    void setTextEndsTheSelectionAndScrollsUp();
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
};

void TestEdit::isAReadOnlyViewWithItsName()
{
    QTeskelEdit edit(nullptr, "article");
    QCOMPARE(edit.objectName(), QStringLiteral("article"));
    QVERIFY(edit.isReadOnly());
    QVERIFY(!edit.isUndoRedoEnabled());
    QVERIFY(!edit.hasMarkedText());
    QVERIFY(edit.markedText().isEmpty());
    edit.setText(QStringLiteral("word"));
    QTest::keyClicks(&edit, QStringLiteral("x"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("word"));
}

void TestEdit::textIsExactlyWhatWasSet_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("empty") << QString();
    QTest::addRow("article") << QStringLiteral("<p><b>house</b></p><p> home</p><p>\nx");
    QTest::addRow("entities") << QStringLiteral("R&D &lt; &nosuch; &#x41");
    QTest::addRow("broken markup") << QStringLiteral("a < b <font color=> </p>");
    QTest::addRow("control characters") << QStringLiteral("a\tb\nc") + QChar(0) + u'd';
    QTest::addRow("picture") << QStringLiteral("<img src='x.png'>");
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
    edit.setText(QStringLiteral("<b>first</b>"));
    QTextEdit& base = edit;
    const auto shown = [&] { return format == Qt::PlainText ? base.toPlainText() : base.toHtml(); };

    base.setHtml(QStringLiteral("<i>second</i>"));
    QVERIFY(base.toPlainText() == QLatin1String("second"));
    QCOMPARE(edit.text(), shown());
    edit.setText(QStringLiteral("third"));
    QCOMPARE(edit.text(), QStringLiteral("third"));
    base.append(QStringLiteral("fourth"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("third\nfourth"));
    QCOMPARE(edit.text(), shown());
    base.clear();
    QCOMPARE(edit.text(), QString());
    QTextCursor(edit.document()).insertText(QStringLiteral("fifth"));
    QCOMPARE(edit.text(), shown());
    base.setText(QString());
    QCOMPARE(edit.text(), QString());
    QTextDocument other(QStringLiteral("sixth"));
    base.setDocument(&other);
    QCOMPARE(edit.text(), shown());
    edit.setText(QStringLiteral("seventh"));
    QCOMPARE(edit.text(), QStringLiteral("seventh"));
    // What is shown is what another format reads.
    base.setPlainText(QStringLiteral("<b>eighth</b>"));
    edit.setTextFormat(Qt::AutoText);
    QVERIFY(edit.toPlainText().contains(QLatin1String("eighth")));
    base.setDocument(nullptr);
}

void TestEdit::textOutlivesWhatChangesNoContents()
{
    QTeskelEdit edit;
    const QString text = QStringLiteral("<p>word <img src=x>");
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
    edit.setText(QStringLiteral("two\nlines &amp; more"));
    QCOMPARE(edit.toPlainText(), QStringLiteral("two lines & more"));
}

void TestEdit::formatsCanBeChosen()
{
    QTeskelEdit edit;
    QCOMPARE(edit.textFormat(), Qt::RichText);
    edit.setText(QStringLiteral("<b>x</b>"));
    edit.setTextFormat(Qt::PlainText);
    QCOMPARE(edit.toPlainText(), QStringLiteral("<b>x</b>"));
    edit.setTextFormat(Qt::AutoText);
    QCOMPARE(edit.toPlainText(), QStringLiteral("x"));
}

void TestEdit::clearSetsTheEmptyText()
{
    QTeskelEdit edit;
    edit.setText(QStringLiteral("word"));
    edit.selectAll();
    edit.clear();
    QVERIFY(edit.text().isEmpty());
    QVERIFY(edit.toPlainText().isEmpty());
    QVERIFY(!edit.hasMarkedText());
}

void TestEdit::setTextEndsTheSelectionAndScrollsUp()
{
    QTeskelEdit edit;
    edit.resize(100, 60);
    edit.show();
    const QString text = QStringLiteral("<p>line</p>").repeated(50);
    edit.setText(text);
    edit.selectAll();
    edit.verticalScrollBar()->setValue(edit.verticalScrollBar()->maximum());
    QVERIFY(edit.verticalScrollBar()->value() > 0);
    edit.setText(text + text);
    QVERIFY(!edit.hasMarkedText());
    QCOMPARE(edit.verticalScrollBar()->value(), 0);
}

void TestEdit::markedTextMapsSeparators_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("marked");
    QTest::addRow("words") << QStringLiteral("<b>one</b> two") << QStringLiteral("one two");
    QTest::addRow("paragraphs") << QStringLiteral("<p>one</p><p>two</p>")
                                << QStringLiteral("one\ntwo");
    QTest::addRow("line break") << QStringLiteral("one<br>two") << QStringLiteral("one\ntwo");
    QTest::addRow("no-break space")
        << QStringLiteral("one&nbsp;two") << QStringLiteral("one\u00A0two");
    QTest::addRow("rule") << QStringLiteral("one<hr>two") << QStringLiteral("one\n\ntwo");
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
    QTest::addRow("tags") << QStringLiteral("<p><b>one</b> <i>two</i><p>three")
                          << QStringLiteral("one two\nthree");
    QTest::addRow("picture") << QStringLiteral("one<img src=x>two") << QStringLiteral("onetwo");
    QTest::addRow("table") << QStringLiteral("<table><tr><td>one</table>")
                           << QStringLiteral("\none\n");
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
    QCOMPARE(clipboard->formats(), QStringList(QStringLiteral("text/plain")));
    QCOMPARE(clipboard->text(), copied);
    // The mouse selection and dragging take the same.
    const std::unique_ptr<QMimeData> dragged(edit.createMimeDataFromSelection());
    QCOMPARE(dragged->formats(), QStringList(QStringLiteral("text/plain")));
    QCOMPARE(dragged->text(), copied);
}

void TestEdit::senseNumberIsBoldBlue()
{
    QTeskelEdit edit;
    edit.setText(QStringLiteral("<p><b><font color=\"#0000FF\">1.</font></b> house"));
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
    edit.setText(QStringLiteral("<p>one <i>two</i>"));
    QTextCursor cursor(edit.document());
    cursor.setPosition(6);
    QVERIFY(cursor.charFormat().fontItalic());
}

void TestEdit::pictureFromAFileIsNotLoaded()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("red.png"));
    QImage red(40, 40, QImage::Format_RGB32);
    red.fill(QColor(255, 0, 0));
    QVERIFY(red.save(path));
    for (const QString& source : {path, QUrl::fromLocalFile(path).toString()}) {
        for (const QString& markup :
             {QStringLiteral("<img src=\"%1\">"),
              QStringLiteral("<p style=\"background-image:url(%1)\">word word word</p>"),
              QStringLiteral("<table background=\"%1\"><tr><td>word</td></tr></table>")}) {
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
    edit.setText(QStringLiteral("<img src=/no/such.png width=70 height=90><img src=x.png>"));
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
    const QString path = directory.filePath(QStringLiteral("red.css"));
    QFile sheet(path);
    QVERIFY(sheet.open(QIODevice::WriteOnly));
    sheet.write("p, b, body { color: #ff0000; background-color: #ff0000 }");
    sheet.close();
    SpyEdit edit;
    edit.resize(200, 200);
    edit.show();
    edit.setText(
        QStringLiteral("<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">"
                       "</head><body><p>word</p></body></html>")
            .arg(path));
    QVERIFY(!edit.asked.isEmpty());
    QVERIFY(!hasColour(edit.grab().toImage(), QColor(255, 0, 0)));
    QCOMPARE(edit.toPlainText(), QStringLiteral("word"));
}

void TestEdit::answersAreEmptyButNotNull()
{
    QTeskelEdit edit;
    const QUrl url(QStringLiteral("http://example.org/x"));
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
    const QString text = QStringLiteral("<a href=\"file:///etc/passwd\">link link link</a>");
    edit.setText(text);
    QVERIFY(!(edit.textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QTest::mouseClick(edit.viewport(), Qt::LeftButton, {},
                      edit.cursorRect().center() + QPoint(10, 0));
    QCOMPARE(edit.text(), text);
    QCOMPARE(edit.toPlainText(), QStringLiteral("link link link"));
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
    edit.setText(QStringLiteral("word"));
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
    edit.setText(QStringLiteral("<p>word"));
    QCOMPARE(edit.document()->defaultFont().pointSize(), 25);
}

QTEST_MAIN(TestEdit)
#include "test_edit.moc"
