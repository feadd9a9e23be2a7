// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"
#include "tests/support/stardictwriter.h"

#include <QFile>
#include <QStringEncoder>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Sources whose bytes are no UTF-8.
class TestProgramEncoding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isNamedWithItsPlace_data();
    void isNamedWithItsPlace();
    void isRead_data();
    void isRead();
    void isReplacedWhenAskedFor();
    void oneByteOfManyIsAnError();
    void charactersMayBeDividedAnywhere_data();
    void charactersMayBeDividedAnywhere();
    void unknownEncodingsAreRefused();
    void piecesCannotBeInUtf16();

private:
    LexiconProgram _program;
};

namespace
{

QByteArray utf16(const char* text, QStringConverter::Encoding encoding, bool hasMark)
{
    const auto flags = hasMark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default;
    return QStringEncoder(encoding, flags)(QString::fromUtf8(text));
}

QByteArray tei(const QByteArray& encoding, const QByteArray& word)
{
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>\n<TEI>\n<entry><form><orth>" +
           word + "</orth></form><def>x</def></entry>\n</TEI>\n";
}

/// "вода, река" in several code pages.
constexpr const char* cyrillicOfWindows =
    "\xE2\xEE\xE4\xE0\t\xF0\xE5\xEA\xE0 \xE8 \xE2\xEE\xE4\xE0, \xE1\xEE\xEB\xFC\xF8\xE0\xFF\n";

} // namespace

void TestProgramEncoding::init()
{
    QFile::remove(_program.path("out.PDB"));
}

void TestProgramEncoding::isNamedWithItsPlace_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("place");
    QTest::addColumn<QByteArray>("encoding");
    const auto add = [](const char* row, const char* name, const QByteArray& content,
                        const char* place, const char* encoding) {
        QTest::newRow(row) << QByteArray(name) << content << QByteArray(place)
                           << QByteArray(encoding);
    };
    add("Latin-1", "a.tsv", "house\tHaus\ncheese\tK\xE4se\n", "a.tsv:2: byte 9 (0xE4)", "latin1");
    add("in a headword", "a.tsv", "K\xE4se\tcheese\n", "a.tsv:1: byte 2 (0xE4)", "latin1");
    add("in the description", "a.tsv", "##description\tK\xE4se\na\tb\n", "a.tsv:1: byte 16 (0xE4)",
        "latin1");
    add("at the end", "a.tsv", "house\tHaus\xC3", "a.tsv:1: byte 11 (0xC3)", "latin1");
    add("a character that is too long", "a.tsv", "house\t\xC0\xAF\n", "a.tsv:1: byte 7 (0xC0)",
        "euc-kr");
    add("half of a pair", "a.tsv", "house\t\xED\xA0\x80\n", "a.tsv:1: byte 7 (0xED)",
        "windows-1252");
    add("beyond Unicode", "a.tsv", "house\t\xF4\x90\x80\x80\n", "a.tsv:1: byte 7 (0xF4)",
        "windows-1251");
    add("Windows-1252", "a.tsv", "house\t\x84Haus\x93\n", "a.tsv:1: byte 7 (0x84)", "windows-1252");
    add("Cyrillic", "a.tsv", QByteArray(cyrillicOfWindows).repeated(5), "a.tsv:1: byte 1 (0xE2)",
        "windows-1251");
    add("UTF-16 with its mark", "a.tsv", utf16("house\tHaus\n", QStringConverter::Utf16LE, true),
        "a.tsv:1: byte 1 (0xFF)", "utf-16le");
    add("the other UTF-16", "a.txt", utf16("house\tHaus\n", QStringConverter::Utf16BE, true),
        "a.txt:1: byte 1 (0xFE)", "utf-16be");
    add("UTF-16 without a mark", "a.tsv", utf16("house\tHaus\n", QStringConverter::Utf16LE, false),
        "a.tsv:1: byte 2 (0x00)", "utf-16le");
    add("the other UTF-16 without", "a.tsv",
        utf16("house\tHaus\n", QStringConverter::Utf16BE, false), "a.tsv:1: byte 1 (0x00)",
        "utf-16be");
    const QByteArray russian = QStringLiteral("вода\tжидкость\nрека\tводный поток\n").toUtf8();
    add("UTF-16 of other letters alone", "a.tsv",
        utf16(russian.constData(), QStringConverter::Utf16BE, false), "a.tsv:1: byte 1 (0x04)",
        "utf-16be");
    add("the other UTF-16 of such", "a.tsv",
        utf16(russian.constData(), QStringConverter::Utf16LE, false), "a.tsv:1: byte 2 (0x04)",
        "utf-16le");
    add("UTF-32", "a.tsv", utf16(russian.constData(), QStringConverter::Utf32LE, true),
        "a.tsv:1: byte 1 (0xFF)", "utf-32le");
    add("UTF-32 without a mark", "a.tsv",
        utf16(russian.constData(), QStringConverter::Utf32BE, false), "a.tsv:1: byte 1 (0x00)",
        "utf-32be");
    add("Polish", "a.tsv", "\xBF\xF3\xB3w\tturtle\nksi\xB1\xBFka\tbook\ncz\xEA\xB6\xE6\tpart\n",
        "a.tsv:1: byte 1 (0xBF)", "iso-8859-2");
    add("TEI", "a.tei", tei("UTF-8", "K\xE4se"), "a.tei:3: byte 21 (0xE4)", "latin1");
    add("TEI that does not say", "a.tei",
        "<TEI><entry><form><orth>K\xE4se</orth></form></entry></TEI>", "a.tei:1: byte 26 (0xE4)",
        "latin1");
    add("index of dictd", "d.index", "house\tA\tL\nk\xE4se\tA\tL\n", "d.index:2: byte 2 (0xE4)",
        "latin1");
    add("articles of dictd", "e.index", "house\tA\tL\n", "e.index:1, in its article: byte 9 (0xFC)",
        "latin1");
    add("words of StarDict", "s.ifo", {}, "s.idx:2: byte 2 (0xE4)", "latin1");
    add("articles of StarDict", "t.ifo", {}, "t.idx:1, in its article: byte 2 (0xE4)", "latin1");
    add("bookname of StarDict", "u.ifo", {}, "u.ifo, in its bookname: byte 2 (0xE4)", "latin1");
}

void TestProgramEncoding::isNamedWithItsPlace()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, place);
    QFETCH(QByteArray, encoding);
    QVERIFY(writeFile(_program.path("d.dict"), "house\nHaus\n"));
    QVERIFY(writeFile(_program.path("e.dict"), "house\nHa\xFCs\n"));
    QVERIFY(StarDictWriter().add("house", "Haus").add("k\xE4se", "x").write(_program.path("s")));
    QVERIFY(StarDictWriter().add("house", "H\xE4user").write(_program.path("t")));
    QVERIFY(StarDictWriter().setName("W\xE4").add("house", "Haus").write(_program.path("u")));
    if (!content.isNull())
        QVERIFY(writeFile(_program.path(name.constData()), content));
    const ProgramResult result =
        _program.run(words({"build", name.constData(), "-q", "-o", "out.PDB"}));
    const QByteArray begin = "teskel-lexicon: " + place + " is no UTF-8; ";
    QVERIFY2(result.err.startsWith(begin), result.err.constData());
    const QByteArray hint = encoding + ", which --encoding " + encoding + " reads";
    QVERIFY2(result.err.contains(hint), result.err.constData());
    QCOMPARE(result.err.count('\n'), 1);
    QCOMPARE(result.code, 3);
    QVERIFY(!QFile::exists(_program.path("out.PDB")));
    // What is told holds.
    QCOMPARE(_program
                 .run(words({"build", name.constData(), "-q", "-o", "out.PDB", "--encoding",
                             encoding.constData()}))
                 .err,
             QByteArray());
    QVERIFY(QFile::exists(_program.path("out.PDB")));
}

void TestProgramEncoding::isRead_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("exported");
    const auto add = [](const char* row, const char* name, const QByteArray& content,
                        const char* encoding, const char* exported) {
        QTest::newRow(row) << QByteArray(name) << content
                           << (*encoding ? words({"--encoding", encoding}) : QStringList())
                           << QByteArray(exported);
    };
    const char* cheese = "cheese\tKäse „x“\n";
    add("Latin-1", "a.tsv", "cheese\tK\xE4se\n", "latin1", "cheese\tKäse\n");
    add("by another name", "a.tsv", "cheese\tK\xE4se\n", "ISO-8859-1", "cheese\tKäse\n");
    add("Windows-1252", "a.tsv", "cheese\tK\xE4se \x84x\x93\n", "windows-1252", cheese);
    add("Windows-1251", "a.tsv", "water\t\xE2\xEE\xE4\xE0\n", "windows-1251", "water\tвода\n");
    add("Shift JIS", "a.tsv", "fish\t\x8B\x9B\n", "shift_jis", "fish\t魚\n");
    add("UTF-8 by its name", "a.tsv", cheese, "UTF8", cheese);
    for (const bool hasMark : {true, false}) {
        const char* mark = hasMark ? "with a mark" : "without a mark";
        for (const char* name : {"utf-16", "utf-16le"})
            QTest::addRow("little-endian %s, %s", mark, name)
                << QByteArray("a.txt") << utf16(cheese, QStringConverter::Utf16LE, hasMark)
                << words({"--encoding", name}) << QByteArray(cheese);
        for (const char* name : {"utf-16", "utf-16be"})
            QTest::addRow("big-endian %s, %s", mark, name)
                << QByteArray("a.txt") << utf16(cheese, QStringConverter::Utf16BE, hasMark)
                << words({"--encoding", name}) << QByteArray(cheese);
    }
    add("TEI, told", "a.tei", tei("UTF-8", "K\xE4se"), "latin1", "Käse\tx\n");
    add("TEI that says so", "a.tei", tei("ISO-8859-1", "K\xE4se"), "", "Käse\tx\n");
    add("TEI that says so otherwise", "a.tei", tei("windows-1252", "K\xE4se \x80"), "",
        "Käse EUR\t<b>Käse €</b>\\nx\n");
    add("TEI in UTF-16", "a.tei",
        utf16(tei("UTF-16", "Käse").constData(), QStringConverter::Utf16LE, true), "", "Käse\tx\n");
    add("TEI in UTF-16, told", "a.tei",
        utf16(tei("UTF-16", "Käse").constData(), QStringConverter::Utf16LE, true), "utf-16",
        "Käse\tx\n");
}

void TestProgramEncoding::isRead()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, options);
    QVERIFY(writeFile(_program.path(name.constData()), content));
    const ProgramResult result =
        _program.run(words({"build", name.constData(), "-o", "out.PDB", "-q"}) + options);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.code, 0);
    QTEST(_program.run(words({"export", "out.PDB"})).out, "exported");
}

void TestProgramEncoding::isReplacedWhenAskedFor()
{
    QVERIFY(writeFile(_program.path("a.tsv"), "cheese\tK\xE4se\n"));
    const ProgramResult result =
        _program.run(words({"build", "a.tsv", "-o", "out.PDB", "--invalid-utf8", "replace"}));
    QCOMPARE(result.code, 0);
    QVERIFY(result.err.startsWith("a.tsv:1: warning[invalid-utf8]: "));
    QCOMPARE(_program.run(words({"export", "out.PDB"})).out,
             QByteArray("cheese\tK\xEF\xBF\xBDse\n"));
}

/// However large the rest.
void TestProgramEncoding::oneByteOfManyIsAnError()
{
    QByteArray tsv;
    const QByteArray article(1'000'000, 'x');
    for (int i = 0; i < 20; ++i)
        tsv += "word" + QByteArray::number(i) + '\t' + article + '\n';
    tsv[1'000'000] = '\x92';
    QVERIFY(writeFile(_program.path("large.tsv"), tsv));
    const QStringList command = words({"build", "large.tsv", "-o", "out.PDB", "--method", "4"});
    const ProgramResult result = _program.run(command);
    QVERIFY2(result.err.contains("large.tsv:1: byte 1000001 (0x92) is no UTF-8"),
             result.err.constData());
    QVERIFY2(result.err.contains("; --invalid-utf8 replace "), result.err.constData());
    QCOMPARE(result.code, 3);
    QVERIFY(!QFile::exists(_program.path("out.PDB")));
    const ProgramResult replaced = _program.run(command + words({"--invalid-utf8", "replace"}));
    QVERIFY2(replaced.err.contains("large.tsv:1: warning[invalid-utf8]"), replaced.err.constData());
    QCOMPARE(replaced.code, 0);
}

void TestProgramEncoding::charactersMayBeDividedAnywhere_data()
{
    QTest::addColumn<int>("shift");
    for (int shift = 0; shift < 5; ++shift)
        QTest::addRow("%d", shift) << shift;
}

/// Whatever the size of the pieces in which files are read: characters of four bytes in both
/// encodings stand at all places modulo four.
void TestProgramEncoding::charactersMayBeDividedAnywhere()
{
    QFETCH(int, shift);
    const QByteArray article = QByteArray(shift, 'x') + QByteArray("\U0001F600").repeated(150'000);
    const QByteArray tsv = "word\t" + article.left(60'000 + shift) + "\nlast\t" + article + '\n';
    QVERIFY(writeFile(_program.path("a.tsv"), tsv));
    QVERIFY(
        writeFile(_program.path("b.tsv"), utf16(tsv.constData(), QStringConverter::Utf16LE, true)));
    QVERIFY(writeFile(_program.path("c.tei"), tei("UTF-8", "word") + "<!--" + article + "-->"));
    QCOMPARE(_program.run(words({"build", "a.tsv", "-q", "-o", "out.PDB", "--method", "4"})).code,
             0);
    QCOMPARE(_program
                 .run(words({"build", "b.tsv", "-q", "-o", "b.PDB", "--method", "4", "--encoding",
                             "utf-16"}))
                 .code,
             0);
    QVERIFY(_program.bytesOf("b.PDB") == _program.bytesOf("out.PDB"));
    QCOMPARE(_program.run(words({"build", "c.tei", "-q", "-o", "c.PDB"})).code, 0);
}

void TestProgramEncoding::unknownEncodingsAreRefused()
{
    const ProgramResult result =
        _program.run(words({"build", "a.tsv", "-o", "out.PDB", "--encoding", "rot13"}));
    QCOMPARE(result.err, QByteArray("--encoding: rot13 is no encoding that is known\n"
                                    "Run with --help for more information.\n"));
    QCOMPARE(result.code, 2);
}

void TestProgramEncoding::piecesCannotBeInUtf16()
{
    QVERIFY(writeFile(_program.path("d.index"), "house\tA\tL\n"));
    QVERIFY(writeFile(_program.path("d.dict"), "house\nHaus\n"));
    const ProgramResult result =
        _program.run(words({"build", "d.index", "-o", "out.PDB", "--encoding", "utf-16"}));
    QCOMPARE(result.err, QByteArray("teskel-lexicon: d.index cannot be in utf-16: it is a dictd "
                                    "dictionary (.index, .dict or .dict.dz)\n"));
    QCOMPARE(result.code, 3);
}

QTEST_GUILESS_MAIN(TestProgramEncoding)
#include "test_program_encoding.moc"
