// SPDX-License-Identifier: MIT
// Writes the seeds of the fuzz corpora that are no texts: makeseeds FOLDER.
#include "tests/dictionary/randomstream.h"
#include "tests/dictionary/staticblock.h"
#include "tests/support/arjmember.h"
#include "tests/support/dictionarywriter.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using namespace teskel::test;

namespace
{
QString folder;
bool isGood = true;

void seed(const char* name, const QByteArray& bytes)
{
    isGood = writeFile(folder + QLatin1Char('/') + QLatin1String(name), bytes) && isGood;
}

QByteArray blockStream()
{
    QRandomGenerator generator(1);
    StaticBlock block(randomLengths(generator, 510, 510), randomLengths(generator, 17, 17));
    for (const char byte : QByteArray("Haus und Hof"))
        block.literal(static_cast<quint8>(byte));
    block.match(8, 5);
    block.match(200, 1);
    block.literal('!');
    BitWriter bits;
    block.writeTo(bits);
    return bits.bytes();
}

QByteArray blockText()
{
    QByteArray text = "Haus und Hof";
    for (int i = 0; i < 8; ++i)
        text += text.at(text.size() - 5);
    return text + QByteArray(200, text.back()) + "!";
}

QByteArray fastStream()
{
    BitWriter bits;
    for (const char byte : QByteArray("abcdefgh"))
        bits.put(0, 1).put(static_cast<quint8>(byte), 8);
    bits.put("1110").put(5, 3).put(0, 1).put(3, 9);      // length 14, distance 4
    bits.put("1111111").put(9, 7).put("10").put(80, 10); // before the start
    return bits.bytes();
}

void decodeSeeds()
{
    for (quint8 method = 1; method <= 3; ++method)
        seed(qPrintable(u"decode/method-%1"_s.arg(method)),
             makeMember(method, blockStream(), blockText()));
    seed("decode/method-4", literalMember("Haus und Hof"));
    seed("decode/method-0-empty", makeMember(0, "", ""));
    seed("decode/end-mark", QByteArray::fromHex("60ea0000"));
    seed("decode/header-cut-short", literalMember("abc").left(20));
    ArjMember extended;
    extended.method = 4;
    extended.extendedHeaders = extendedHeader("more");
    extended.comment = "comment";
    seed("decode/extended-header", extended.header());
    seed("decode/stream-blocks", QByteArray("\0\1\0", 3) + blockStream());
    seed("decode/stream-fastest", QByteArray("\3\0\x40", 3) + fastStream());
    seed("decode/stream-zeros", QByteArray("\0\x7F\xFF", 3) + QByteArray(8, '\0'));
}

// The head that fuzz_reference.cpp reads, and what follows it.
QByteArray referenceSeed(char choice, char beyond, quint16 size, const QByteArray& rest)
{
    BitWriter head;
    head.put(static_cast<quint8>(choice), 8).put(static_cast<quint8>(beyond), 8).put(size, 16);
    head.put(size * 7919U, 32);
    return head.bytes() + rest;
}

void referenceSeeds()
{
    constexpr char generated = 4;
    constexpr char otherRoom = 8;
    constexpr char otherClaim = 16;
    seed("reference/blocks", referenceSeed(0, 0, 221, blockStream()));
    seed("reference/blocks-cut-short", referenceSeed(1, 0, 221, blockStream().chopped(4)));
    seed("reference/blocks-claimed-longer", referenceSeed(otherClaim, 9, 2000, blockStream()));
    seed("reference/fastest", referenceSeed(3, 0, 100, fastStream()));
    seed("reference/fastest-small-target", referenceSeed(3 | otherRoom, -3, 70, fastStream()));
    seed("reference/generated-blocks", referenceSeed(generated, 0, 8000, QByteArray()));
    seed("reference/generated-blocks-changed",
         referenceSeed(generated | 2, 0, 9000, QByteArray("\0\5\1\1\2\x80", 6)));
    seed("reference/generated-fastest", referenceSeed(generated | 3, 0, 20000, QByteArray()));
    seed("reference/generated-fastest-changed",
         referenceSeed(generated | 3 | otherRoom, 70, 3000, QByteArray("\0\x20\xFF", 3)));
}

// The two bytes of the size that fuzz_method.cpp reads, and a stream.
void methodSeeds()
{
    const QByteArray small("\0\xDD", 2);
    const QByteArray large("\xFF\xFF", 2);
    for (int method = 1; method <= 3; ++method) {
        const QString folderName = u"method%1/"_s.arg(method);
        seed(qPrintable(folderName + "blocks"_L1), small + blockStream());
        seed(qPrintable(folderName + "blocks-cut-short"_L1), small + blockStream().chopped(4));
        QRandomGenerator generator(static_cast<quint32>(method));
        seed(qPrintable(folderName + "random-blocks"_L1), large + randomBlocks(generator));
    }
    seed("method4/literals-and-matches", small + fastStream());
    seed("method4/zeros", large + QByteArray(8, '\0'));
    QRandomGenerator generator(4);
    seed("method4/random", large + randomFastest(generator));
}

// Behind the id, which fuzz_arjheader.cpp puts in front.
void headerSeeds()
{
    ArjMember member;
    seed("arjheader/usual", member.header().mid(2));
    member.comment = "comment";
    member.extendedHeaders = extendedHeader("more") + extendedHeader("");
    seed("arjheader/extended", member.header().mid(2));
    member.firstHeaderSize = 46;
    seed("arjheader/long-first-header", member.header().mid(2));
    member.hasTerminators = false;
    seed("arjheader/no-terminators", member.header().mid(2));
    seed("arjheader/end-mark", QByteArray(2, '\0'));
    seed("arjheader/cut-short", ArjMember().header().mid(2, 20));
}

void containerSeeds()
{
    PalmWriter writer;
    seed("container/no-records", writer.build());
    seed("container/header-cut-short", writer.build().left(50));
    writer.addRecord("one").addRecord("").addRecord("three");
    seed("container/three-records", writer.build());
    seed("container/count-too-high", PalmWriter(writer).claimRecordCount(60000).build());
    seed("container/decreasing-offsets", PalmWriter(writer).claimOffset(2, 90).build());
    seed("container/offset-past-the-end", PalmWriter(writer).claimOffset(2, 0x7FFFFFFF).build());
}

void lexiconSeeds()
{
    DictionaryWriter writer;
    writer.addRecord({{"ant", "1"}, {"house", "2 &_eiu;"}});
    writer.addRecord({{"houses", "3"}});
    const PalmWriter whole = writer.container();
    seed("lexicon/two-records", whole.build());
    seed("lexicon/cut-short", whole.build().chopped(30));
    seed("lexicon/list-damaged", PalmWriter(whole).claimOffset(5, 7).claimOffset(6, 3).build());
    seed("lexicon/no-index", DictionaryWriter(writer).setIndex("").container().build());
}

void dictionarySeeds()
{
    DictionaryWriter writer;
    writer.setDescription("d");
    writer.addRecord({{"ant", "1"}, {"house", "2"}});
    writer.addRecord({{"house", "3"}, {"houses", ""}});
    const PalmWriter whole = writer.container();
    seed("dictionary/two-records", whole.build());
    seed("dictionary/cut-short", whole.build().chopped(9));
    seed("dictionary/no-records", PalmWriter().build());
    seed("dictionary/count-too-high", PalmWriter(whole).claimRecordCount(60000).build());
    seed("dictionary/decreasing-offsets", PalmWriter(whole).claimOffset(6, 90).build());
    seed("dictionary/offset-past-the-end", PalmWriter(whole).claimOffset(5, 0x7FFFFFFF).build());
    seed("dictionary/index-without-end",
         DictionaryWriter(writer).setIndex("ant").container().build());
    seed("dictionary/topic", DictionaryWriter(writer).setIndex("#a").container().build());
    seed("dictionary/packed-record-damaged",
         DictionaryWriter(writer).addPackedRecord("x", "60ea").container().build());
}

void entrySeeds()
{
    seed("entries/in-order", "ant/house//|ant/1/ape/2//|house/3/houses/4//");
    seed("entries/in-disorder", "b/a//|z/1/a/2//|b/3/A/4/b/5//");
    seed("entries/no-terminators", "a|a/b|house");
    seed("entries/empty-records", "a/b/c//|/|a/1//||/");
    seed("entries/fold-alike", "a//|a/1/A/2/a/3//|A/4/\xE4/5/\xC4/6//");
    seed("entries/no-index", "|a/1//");
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    folder = QFile::decodeName(argv[1]);
    for (const char* target : {"arjheader", "container", "decode", "dictionary", "entries",
                               "lexicon", "method1", "method2", "method3", "method4", "reference"})
        QDir(folder).mkpath(QLatin1String(target));
    containerSeeds();
    headerSeeds();
    methodSeeds();
    lexiconSeeds();
    decodeSeeds();
    referenceSeeds();
    dictionarySeeds();
    entrySeeds();
    return isGood ? 0 : 1;
}
