// SPDX-License-Identifier: MIT
#include "lexicon/sources/tei/teisource.h"
#include "tests/support/palmwriter.h"

#include <QStringConverter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel;
using teskel::test::writeFile;

/// Reads TEI documents: how entries are laid out, and what can be wrong with a document.
class TestTeiSource : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void laysEntriesOut_data();
    void laysEntriesOut();
    void describesItself();
    void laterEntriesFollow();
    void whatIsNoAttributeIsNotCounted_data();
    void whatIsNoAttributeIsNotCounted();
    void knowsWideText_data();
    void knowsWideText();
    void notesEntriesWithoutAWord();
    void knowsDocumentsByTheirRoot_data();
    void knowsDocumentsByTheirRoot();
    void refusesWhatIsWrong_data();
    void refusesWhatIsWrong();
    void readsNoOtherFile();
    void refusesEveryTruncation();

private:
    static QByteArray document(const QByteArray& entries)
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<TEI xmlns=\"http://www.tei-c.org/ns/1.0\"><teiHeader><fileDesc><titleStmt>"
               "<title>English - German,\n  a sample</title></titleStmt></fileDesc></teiHeader>"
               "<text><body>" +
               entries + "</body></text></TEI>";
    }
    /// "word: article" for each entry; after a failure, the reason.
    QByteArrayList read(const QByteArray& content);

    std::unique_ptr<QTemporaryDir> _directory;
    BuildReport _report;
    std::string _description;
};

void TestTeiSource::init()
{
    _directory = std::make_unique<QTemporaryDir>();
    _report = {};
}

QByteArrayList TestTeiSource::read(const QByteArray& content)
{
    const QString path = _directory->filePath(u"d.tei"_s);
    auto input = std::make_unique<InputFile>();
    std::string error;
    if (!writeFile(path, content) || !input->open(path.toStdString(), error))
        return {"cannot be staged"};
    EntrySorter sorter;
    EntryIntake intake(sorter, _report);
    TeiSource source(std::move(input));
    if (!source.read(intake, error))
        return {QByteArray::fromStdString(error).replace(path.toUtf8(), "d.tei")};
    _description = source.description();
    const auto entries = sorter.sorted();
    QByteArrayList result;
    for (LexiconEntry entry; entries->next(entry);)
        result += QByteArray(entry.text) + ": " + QByteArray(entry.article().data());
    return result;
}

void TestTeiSource::laysEntriesOut_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<QByteArrayList>("entries");
    const auto row = [](const char* name, const QByteArray& entry, const QByteArrayList& entries) {
        QTest::newRow(name) << entry << entries;
    };
    const auto form = [](const QByteArray& word) {
        return "<form><orth>" + word + "</orth></form>";
    };
    const auto translation = [](const QByteArray& word) {
        return "<cit type='trans'><quote>" + word + "</quote></cit>";
    };
    row("translations",
        form("house") + "<sense>" + translation("Haus") + translation("Geb&#xE4;ude") + "</sense>",
        {"house: Haus, Geb\xE4ude"});
    row("translations beside senses", form("house") + translation("Haus"), {"house: Haus"});
    row("grammar of both words",
        form("house") +
            "<gramGrp><pos>n</pos></gramGrp><sense><cit type='trans'><quote>Haus</quote>"
            "<gramGrp><gen>neut</gen></gramGrp></cit></sense>",
        {"house: &lt;n> Haus &lt;neut>"});
    row("numbered senses",
        form("agitate") + "<sense n='1'>" + translation("r\xC3\xBCtteln") +
            "</sense><sense n='2'>" + translation("aufregen") + "</sense>",
        {"agitate: 1. r\xFCtteln\n2. aufregen"});
    row("senses within a sense",
        form("a") + "<sense><sense>" + translation("b") + "</sense><sense>" + translation("c") +
            "</sense></sense>",
        {"a: b\nc"});
    row("usage and definition",
        form("bat") + "<sense><usg type='dom'>zool.</usg>" + translation("Fledermaus") +
            "<def>a flying\n  mammal</def></sense>",
        {"bat: [zool.] Fledermaus\na flying mammal"});
    row("definition alone", form("a") + "<sense><def>x &lt; y &amp; z</def></sense>",
        {"a: x &lt; y &amp; z"});
    row("example",
        form("a") + "<sense>" + translation("b") + "<cit type='example'><quote>c d</quote>" +
            translation("e f") + "</cit></sense>",
        {"a: b\n\"c d\" - e f"});
    row("references",
        form("a") + "<sense>" + translation("b") +
            "<xr type='syn'><ref>c</ref>, <ref>d, e</ref></xr><xr><ref target='#f'>f</ref></xr>"
            "</sense>",
        {"a: b\nSynonyms: c; d, e\nsee: f"});
    row("note", form("a") + "<sense>" + translation("b") + "<note>rare</note></sense>",
        {"a: b\nNote: rare"});
    row("several words",
        "<form><orth>color</orth><form type='variant'><orth>colour</orth></form></form>" +
            translation("Farbe"),
        {"color: (colour)\nFarbe", "colour: (color)\nFarbe"});
    row("homographs",
        form("a") + "<hom><gramGrp><pos>n</pos></gramGrp><sense>" + translation("b") +
            "</sense></hom><hom><gramGrp><pos>v</pos></gramGrp><sense>" + translation("c") +
            "</sense></hom>",
        {"a: &lt;n>\nb\n&lt;v>\nc"});
    row("word that is its own translation", form("Computer") + translation("Computer"),
        {"Computer: Computer"});
    row("elements that are not known", form("a") + "<etym>from <lang>Latin</lang></etym>",
        {"a: from Latin"});
    row("no text", form("a"), {"a: a"});
}

void TestTeiSource::laysEntriesOut()
{
    QFETCH(QByteArray, entry);
    QFETCH(QByteArrayList, entries);
    QCOMPARE(read(document("<entry>" + entry + "</entry>")), entries);
    QVERIFY(_report.diagnostics.lines().empty());
}

void TestTeiSource::describesItself()
{
    QCOMPARE(read(document("<entry><form><orth>a</orth></form></entry>")).size(), 1);
    QCOMPARE(_description, std::string("English - German, a sample"));
}

void TestTeiSource::laterEntriesFollow()
{
    const QByteArray entry = "<entry><form><orth>word</orth></form><sense><def>" +
                             QByteArray(1000, 'x') + "</def></sense></entry>\n";
    // More than an entry may have, together.
    QCOMPARE(read(document("<div>" + entry.repeated(6000) + "</div>")).size(), 6000);
}

void TestTeiSource::whatIsNoAttributeIsNotCounted_data()
{
    QTest::addColumn<QByteArray>("entry");
    const QByteArray quotes = QByteArray(" a='b' \"c\"").repeated(5000);
    QTest::newRow("comment") << "<!-- <a" + quotes + "-->";
    QTest::newRow("characters") << "<note><![CDATA[<a" + quotes + "]]></note>";
    QTest::newRow("instruction") << "<?a" + quotes + "?>";
    QTest::newRow("text") << "<note>" + quotes + "</note>";
    QTest::newRow("elements") << QByteArray("<a b='c'/>").repeated(5000);
}

void TestTeiSource::whatIsNoAttributeIsNotCounted()
{
    QFETCH(QByteArray, entry);
    const QByteArray word = "<form><orth>word</orth></form>";
    QCOMPARE(read(document("<entry>" + word + entry + "</entry>")).size(), 1);
    QVERIFY(_description == "English - German, a sample");
}

void TestTeiSource::knowsWideText_data()
{
    QTest::addColumn<int>("encoding");
    QTest::newRow("UTF-16LE") << int(QStringConverter::Utf16LE);
    QTest::newRow("UTF-16BE") << int(QStringConverter::Utf16BE);
}

/// Its bytes may look like markup.
void TestTeiSource::knowsWideText()
{
    QFETCH(int, encoding);
    const QString text =
        QString::fromUtf8(document("<entry><form><orth>word</orth></form><note>" +
                                   QByteArray("\u223C\u4E22").repeated(5000) + "</note></entry>"))
            .replace(u"UTF-8"_s, u"UTF-16"_s);
    QStringEncoder encoder(static_cast<QStringConverter::Encoding>(encoding),
                           QStringConverter::Flag::WriteBom);
    const QByteArrayList entries = read(encoder(text));
    QCOMPARE(entries.size(), 1);
    QVERIFY(entries.front().startsWith("word: Note: &_ccdm;"));
}

void TestTeiSource::notesEntriesWithoutAWord()
{
    QCOMPARE(read(document("\n<entry><sense><def>lost</def></sense></entry>")), QByteArrayList());
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QVERIFY2(_report.diagnostics.lines().front().ends_with(
                 "d.tei:4: warning[entry-without-word]: an entry without <orth> is left out: lost"),
             _report.diagnostics.lines().front().c_str());
}

void TestTeiSource::knowsDocumentsByTheirRoot_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<int>("likeness");
    const auto row = [](const char* name, const QByteArray& path, const QByteArray& head,
                        Likeness likeness) {
        QTest::newRow(name) << path << head << static_cast<int>(likeness);
    };
    row("document", "x", document({}), Likeness::Certain);
    row("document on the standard input", "-", document({}), Likeness::Certain);
    row("byte order mark", "x", "\xEF\xBB\xBF" + document({}), Likeness::Certain);
    row("older document", "x", "<!DOCTYPE TEI.2>\n<TEI.2>", Likeness::Certain);
    row("other XML", "x", "<html>", Likeness::None);
    row("named", "x.tei", "", Likeness::Named);
    row("named and packed", "x.tei.xz", "", Likeness::Named);
    row("text about TEI", "x", "The root <TEI> is", Likeness::None);
}

void TestTeiSource::knowsDocumentsByTheirRoot()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, head);
    QFETCH(int, likeness);
    QCOMPARE(static_cast<int>(TeiSource::looksLike(path.toStdString(), head.toStdString())),
             likeness);
}

void TestTeiSource::refusesWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char* name, const QByteArray& content, const QByteArray& reason) {
        QTest::newRow(name) << content << reason;
    };
    const QByteArray malformed = "no well-formed XML: ";
    row("no TEI", "<html/>", "d.tei is no TEI document: its root is <html>");
    row("nothing", "", "d.tei:1: " + malformed + "Premature end of document.");
    row("no XML", "house\tHaus\n", "d.tei:1: " + malformed + "Start tag expected.");
    row("wrong end", document("<entry></form>"),
        "d.tei:3: " + malformed + "Opening and ending tag mismatch.");
    row("endless nesting", document("<entry>" + QByteArray("<form>").repeated(1000000)),
        "d.tei:3: elements nest more than 64 deep");
    row("endless nesting outside entries", document(QByteArray("<div>").repeated(1000000)),
        "d.tei:3: elements nest more than 64 deep");
    row("endless text", document("<entry><note>" + QByteArray(5 << 20, 'x')),
        "d.tei:3: an entry, or what stands between entries, is longer than 4 MiB");
    row("endless elements", document("<entry>" + QByteArray("<a/>").repeated(2 << 20)),
        "d.tei:3: an entry, or what stands between entries, is longer than 4 MiB");
    row("entity of a DTD elsewhere", "<!DOCTYPE TEI SYSTEM \"x.dtd\">\n<TEI><text>&e;</text></TEI>",
        "d.tei:2: \"&e;\" is not declared here");
    row("entity that is not declared", document("<entry>&e;"),
        "d.tei:3: " + malformed + "Entity 'e' not declared.");
    QByteArray bomb = "<!DOCTYPE TEI [<!ENTITY a0 \"x\">";
    for (int i = 1; i < 40; ++i)
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"&a" + QByteArray::number(i - 1) + ";&a" +
                QByteArray::number(i - 1) + ";\">";
    row("entity that grows without end", bomb + "]>\n<TEI><text>&a39;</text></TEI>",
        "d.tei:2: " + malformed +
            "Entity expands to more characters than the entity expansion limit.");
    row("entity that is repeated without end",
        "<!DOCTYPE TEI [<!ENTITY a \"" + QByteArray(4000, 'x') + "\">]>\n<TEI><text><entry><note>" +
            QByteArray("&a;").repeated(50000) + "</note></entry></text></TEI>",
        "d.tei:2: an entry, or what stands between entries, is longer than 4 MiB");
    row("entity of others that is repeated without end",
        "<!DOCTYPE TEI [<!ENTITY a \"" + QByteArray(2000, 'x') +
            "\"><!ENTITY b \"&a;&a;\">]>\n<TEI><text><entry n='" +
            QByteArray("&b;").repeated(50000) + "'/></text></TEI>",
        "d.tei:2: an entry, or what stands between entries, is longer than 4 MiB");
    QByteArray attributes;
    for (int i = 0; i < 20000; ++i)
        attributes += " a" + QByteArray::number(i) + "='>'";
    const QByteArray tooMany = "an element has more than 1000 attributes";
    row("endless attributes", document("\n<entry" + attributes + "/>"), "d.tei:4: " + tooMany);
    for (const char* const before :
         {"<!-- ' <a b='-->", "<![CDATA[ <!-- ' ]] > ]]>", "<?p <!-- ' ?>", "<a b=\"<!--'>\"/>"})
        row(before, document(before + QByteArray("<entry") + attributes + "/>"),
            "d.tei:3: " + tooMany);
    for (const char* const before :
         {"<!DOCTYPE TEI [<!ENTITY e \"<a b='\"><!-- ' --><?p ' ?>]>", "<!DOCTYPE TEI>",
          "<!DOCTYPE TEI SYSTEM \"'[\">", "<!-- <!-- -->"})
        row(before, before + ("<TEI" + attributes.replace(">", "&gt;") + "/>"),
            "d.tei:1: " + tooMany);
}

void TestTeiSource::refusesWhatIsWrong()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, reason);
    QCOMPARE(read(content), QByteArrayList{reason});
}

void TestTeiSource::readsNoOtherFile()
{
    QVERIFY(writeFile(_directory->filePath(u"e.txt"_s), "secret"));
    QCOMPARE(read("<!DOCTYPE TEI [<!ENTITY e SYSTEM \"e.txt\">]>\n<TEI><text><entry><form>"
                  "<orth>a&e;b</orth></form></entry></text></TEI>"),
             QByteArrayList{"ab: ab"});
    QCOMPARE(_report.diagnostics.lines().size(), size_t{1});
    QVERIFY2(_report.diagnostics.lines().front().ends_with(
                 "d.tei:1: warning[external-entity]: the text of \"&e;\" is in another file, which "
                 "is not read; it is left out"),
             _report.diagnostics.lines().front().c_str());
}

void TestTeiSource::refusesEveryTruncation()
{
    const QByteArray whole =
        document("<entry><form><orth>a</orth></form><sense><def>b</def></sense></entry>");
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const QByteArrayList result = read(whole.left(size));
        QCOMPARE(result.size(), 1);
        QVERIFY2(result.front().startsWith("d.tei:"), result.front().constData());
    }
}

QTEST_GUILESS_MAIN(TestTeiSource)
#include "test_teisource.moc"
