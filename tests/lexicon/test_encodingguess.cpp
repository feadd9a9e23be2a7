// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/encodingguess.h"
#include "lexicon/sources/input/textdecoder.h"
#include "lexicon/sources/input/wideencoding.h"

#include <QTest>

#include <iconv.h>

using teskel::EncodingGuess;
using teskel::guessEncoding;
using teskel::TextDecoder;
using teskel::wideEncodingOf;

class TestEncodingGuess : public QObject
{
    Q_OBJECT

private slots:
    void isTheOneThatTheTextIsIn_data();
    void isTheOneThatTheTextIsIn();
    void fewLettersTellNothingForSure_data();
    void fewLettersTellNothingForSure();
    void widthIsSeen_data();
    void widthIsSeen();
    void widthIsNotSeenInBytes_data();
    void widthIsNotSeenInBytes();
};

namespace
{

/// Empty when the text cannot be written in the encoding.
QByteArray encoded(QByteArray text, const char* encoding)
{
    iconv_t converter = ::iconv_open(encoding, "UTF-8");
    QByteArray result(text.size() * 4 + 4, '\0');
    char* in = text.data();
    char* out = result.data();
    auto inLeft = static_cast<size_t>(text.size());
    auto outLeft = static_cast<size_t>(result.size());
    const bool isDone = ::iconv(converter, &in, &inLeft, &out, &outLeft) == 0;
    ::iconv_close(converter);
    result.chop(static_cast<qsizetype>(outLeft));
    return isDone ? result : QByteArray();
}

constexpr const char* german = "Käse\tcheese\nTür\tdoor\nStraße\tstreet\nschön\tbeautiful\n";
constexpr const char* polish = "żółw\tturtle\nźródło\tspring, source of a river\nksiążka\tbook\n"
                               "świat\tworld\nczęść\tpart of it\n";
constexpr const char* russian =
    "вода\twater\nрека\triver\nбольшой\tbig\nРоссия\tRussia, the country\n";
constexpr const char* greek = "νερό\twater\nποτάμι\triver\nσπίτι\thouse\nμεγάλος\tbig\n";
constexpr const char* japanese = "水\tみず、water\n川\tかわ、river\n大きい\tおおきい、big\n"
                                 "ありがとう\tthank you\nコンピューター\tcomputer\n";
constexpr const char* chinese = "房子\thouse\n河流\triver\n大的\tbig\n谢谢你\tthank you\n"
                                "我们是学生\twe are students\n";

} // namespace

void TestEncodingGuess::isTheOneThatTheTextIsIn_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QByteArray>("expected");
    const auto add = [](const char* language, const char* text, const char* encoding,
                        const char* expected = nullptr) {
        QTest::addRow("%s in %s", language, encoding) << QByteArray(text) << QByteArray(encoding)
                                                      << QByteArray(expected ? expected : encoding);
    };
    add("German", german, "latin1");
    add("German", "Haus\t„house“\nKäse\tcheese – of milk\nfünf\t5 €\n", "windows-1252");
    add("English", "don’t\tit’s what one doesn’t, and “I can’t”\n", "windows-1252");
    add("French", "été\tsummer\nforêt\tforest\ngarçon\tboy\nélève\tpupil\noù\twhere\n", "latin1");
    add("Spanish", "niño\tchild\ncanción\tsong\n¿qué?\twhat\nmañana\ttomorrow\n", "latin1");
    add("Icelandic", "það\tthat\nþú\tyou\nmaður\tman\nfjörður\tfjord\n", "latin1");
    add("Polish", polish, "iso-8859-2");
    add("Polish", polish, "windows-1250");
    const char* czech = "řeka\triver\nžena\twoman\nčlověk\tman\nštěstí\tluck\nkůň\thorse\n";
    add("Czech", czech, "iso-8859-2");
    add("Czech", czech, "windows-1250");
    const char* turkish = "değil\tnot\nışık\tlight\nşehir\ttown\ngüneş\tsun\nağaç\ttree\n";
    add("Turkish", turkish, "windows-1254");
    add("Turkish", turkish, "iso-8859-9", "windows-1254");
    add("Lithuanian", "ačiū\tthanks\nžemė\tearth\nšuo\tdog\nąžuolas\toak\n", "windows-1257");
    for (const char* encoding : {"windows-1251", "koi8-r", "iso-8859-5", "ibm866"})
        add("Russian", russian, encoding);
    add("Ukrainian", "вода\twater\nїжак\thedgehog\nєдність\tunity\nКиїв\tKyiv\n", "windows-1251");
    add("Greek", greek, "windows-1253");
    add("Greek", greek, "iso-8859-7", "windows-1253");
    add("Hebrew", "מים\twater\nבית\thouse\nנהר\triver\nגדול\tbig\nתודה\tthanks\n", "windows-1255");
    add("Arabic", "ماء\twater\nبيت\thouse\nنهر\triver\nكبير\tbig\nشكرا\tthanks\n", "windows-1256");
    add("Japanese", japanese, "shift_jis");
    add("Japanese", japanese, "euc-jp");
    add("Chinese", chinese, "gb18030");
    add("Chinese", "房子\thouse\n河流\triver\n謝謝你\tthank you\n我們是學生\twe are students\n",
        "big5");
    add("Korean", "물\twater\n집\thouse\n크다\tbig\n감사합니다\tthank you\n컴퓨터\tcomputer\n",
        "euc-kr");
}

/// Among many words that are ASCII, as dictionaries into English have.
void TestEncodingGuess::isTheOneThatTheTextIsIn()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, encoding);
    QFETCH(QByteArray, expected);
    const QByteArray bytes = encoded(text, encoding.constData());
    QVERIFY(!bytes.isEmpty());
    const QByteArray english =
        QByteArray("the water of a river that is of the house\n").repeated(50);
    for (const QByteArray& whole : {bytes, english + bytes + english}) {
        const EncodingGuess guess = guessEncoding(whole.toStdString());
        QCOMPARE(QByteArray::fromStdString(guess.name), expected);
        QVERIFY(guess.isSure);
        QVERIFY(guess.others.empty());
    }
    // What is told reads it.
    TextDecoder decoder(expected.toStdString());
    std::string decoded;
    decoder.decode(bytes.toStdString(), decoded);
    decoder.finish(decoded);
    QCOMPARE(QByteArray::fromStdString(decoded), text);
}

void TestEncodingGuess::fewLettersTellNothingForSure_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("encoding");
    QTest::newRow("Russian") << QByteArray("вода\n") << QByteArray("windows-1251");
    QTest::newRow("Hungarian") << QByteArray("tűz\n") << QByteArray("iso-8859-2");
    QTest::newRow("Chinese") << QByteArray("水\n") << QByteArray("gb18030");
}

void TestEncodingGuess::fewLettersTellNothingForSure()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, encoding);
    const EncodingGuess guess = guessEncoding(encoded(text, encoding.constData()).toStdString());
    QVERIFY(!guess.isSure);
    QVERIFY(guess.others.size() <= 2);
}

void TestEncodingGuess::widthIsSeen_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("encoding");
    for (const char* encoding : {"utf-16le", "utf-16be", "utf-32le", "utf-32be"}) {
        const auto add = [encoding](const char* language, const char* text) {
            QTest::addRow("%s in %s", language, encoding)
                << QByteArray(text) << QByteArray(encoding);
        };
        add("German", german);
        add("Russian", russian);
        add("Russian alone", "вода\tжидкость\nрека\tпоток воды\n");
        add("Greek", greek);
        add("Japanese", japanese);
        add("Chinese", chinese);
        add("beyond 16 bits", "😀\tsmile\n😢\ttears\n");
    }
}

void TestEncodingGuess::widthIsSeen()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, encoding);
    const QByteArray bytes = encoded(text, encoding.constData());
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(wideEncodingOf(bytes.toStdString()), std::string_view(encoding.constData()));
    // By the mark alone.
    const std::string mark = encoded("\uFEFF", encoding.constData()).toStdString();
    QCOMPARE(wideEncodingOf(mark), std::string_view(encoding.constData()));
    QCOMPARE(wideEncodingOf(mark + bytes.toStdString()), std::string_view(encoding.constData()));
}

void TestEncodingGuess::widthIsNotSeenInBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("ASCII") << QByteArray("house\tHaus\n");
    for (const char* text : {german, polish, russian, japanese, chinese})
        QTest::addRow("UTF-8 %s", text) << QByteArray(text);
    QTest::newRow("windows-1251") << encoded(russian, "windows-1251");
    QTest::newRow("shift_jis") << encoded(japanese, "shift_jis");
    QTest::newRow("a zero") << QByteArray("house\tHa\0us of the king\n", 24);
    QTest::newRow("a zero behind a blank") << QByteArray("house\t\0Haus of the king\n", 24);
    QTest::newRow("a zero before the end") << QByteArray("house\tHaus\0\n", 12);
    QTest::newRow("zeros at the end") << "house\tHaus of the king\n" + QByteArray(40, '\0');
    QTest::newRow("a control character") << QByteArray("house\tHa\x01us\n");
    QTest::newRow("zeros") << QByteArray(64, '\0');
}

void TestEncodingGuess::widthIsNotSeenInBytes()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(wideEncodingOf(bytes.toStdString()), std::string_view());
}

QTEST_APPLESS_MAIN(TestEncodingGuess)
#include "test_encodingguess.moc"
