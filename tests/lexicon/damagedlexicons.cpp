// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"

#include "tests/support/arjmember.h"

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{

QByteArray withSecondRecord(const QByteArray& text)
{
    return DictionaryWriter()
        .addRecord({{"ant", "Ameise"}})
        .addPackedRecord("bee", literalMember(text))
        .container()
        .build();
}

} // namespace

DictionaryWriter soundLexicon()
{
    return DictionaryWriter()
        .setDescription("Test")
        .addRecord({{"ant", "Ameise"}, {"Bee", "Biene"}})
        .addRecord({{"cat", "Katze"}, {"dog", "Hund"}});
}

QByteArray soundBytes()
{
    return soundLexicon().container().build();
}

qsizetype offsetOf(const QByteArray& bytes, int index)
{
    qsizetype offset = 0;
    for (int i = 0; i < 4; ++i)
        offset = offset << 8 | static_cast<quint8>(bytes[78 + 8 * index + i]);
    return offset;
}

QByteArray withByte(QByteArray bytes, qsizetype position, char value)
{
    bytes[position] = value;
    return bytes;
}

QByteArray withEmptyRecords(const QList<int>& numbers)
{
    QByteArrayList records = {QByteArray("ant\0bee\0\0", 9),
                              "-",
                              literalMember(QByteArray("Test\0", 5)),
                              "-",
                              "-",
                              literalMember(DictionaryWriter::recordText({{"ant", "Ameise"}})),
                              literalMember(DictionaryWriter::recordText({{"bee", "Biene"}}))};
    for (const int number : numbers)
        records[number].clear();
    PalmWriter writer;
    for (const QByteArray& record : records)
        writer.addRecord(record);
    return writer.build();
}

QByteArray withDescription(const QByteArray& text)
{
    PalmWriter writer;
    writer.addRecord(QByteArray(1, '\0')).addRecord("-").addRecord(literalMember(text));
    return writer.addRecord("-").addRecord("-").build();
}

QList<DamagedLexicon> damagedLexicons()
{
    QList<DamagedLexicon> all;
    const auto row = [&all](const char* name, const QByteArray& bytes,
                            std::initializer_list<const char*> findings) {
        QStringList texts;
        for (const char* finding : findings)
            texts += QString::fromUtf8(finding);
        all.append({name, bytes, texts});
    };
    const QByteArray good = soundBytes();

    row("empty file", {}, {"container: the file ends within its header of 78 bytes"});
    row("cut in the header", good.left(77),
        {"container: the file ends within its header of 78 bytes"});
    row("cut in the record list", good.left(100),
        {"container: the file ends within its list of 7 records"});
    row("foreign creator", withByte(good, 64, 'X'), {"creator: the creator is not \"TSKL\""});
    row("four records", soundLexicon().container().claimRecordCount(4).build(),
        {"records: there are 4 records, a dictionary has at least 5"});
    row("offset in the record list", soundLexicon().container().claimOffset(0, 100).build(),
        {"offsets: record 0 begins at 100, before the end of what stands in front of it"});
    row("descending offsets", soundLexicon().container().claimOffset(3, 140).build(),
        {"offsets: record 3 begins at 140, before the end of what stands in front of it"});
    row("offset behind the file", soundLexicon().container().claimOffset(6, 9999).build(),
        {qPrintable(u"offsets: record 6 begins at 9999, the file ends at %1"_s.arg(good.size()))});
    row("no bytes in the index", withEmptyRecords({0}), {"offsets: record 0 has no bytes"});
    row("no bytes in the description", withEmptyRecords({1, 2, 3}),
        {"offsets: record 2 has no bytes"});
    row("no bytes in a word record", withEmptyRecords({4, 5}), {"offsets: record 5 has no bytes"});
    row("no bytes in the last word records", withEmptyRecords({5, 6}),
        {"offsets: record 5 has no bytes", "offsets: record 6 has no bytes"});
    row("record that is not read behind the file",
        soundLexicon().container().claimOffset(3, 9999).build(),
        {qPrintable(u"offsets: record 3 begins at 9999, the file ends at %1"_s.arg(good.size()))});
    row("cut in the last record", good.left(good.size() - 3),
        {"unpack: record 6 does not unpack: its bytes do not match their checksum"});
    row("flipped bit in a word record",
        withByte(good, offsetOf(good, 6) - 1, static_cast<char>(good[offsetOf(good, 6) - 1] ^ 8)),
        {"unpack: record 5 does not unpack: its bytes do not match their checksum"});
    row("no header in a word record", withByte(good, offsetOf(good, 5), 'x'),
        {"unpack: record 5 does not unpack: it does not begin with a whole header"});
    row("unknown method", withByte(good, offsetOf(good, 5) + 9, 0),
        {"unpack: record 5 does not unpack: it is packed by a method other than 1 to 4"});
    row("huge unpacked size", withByte(good, offsetOf(good, 5) + 22, 1),
        {"unpack: record 5 does not unpack: it claims to expand to more than 32,767 bytes"});
    row("no header in the description", withByte(good, offsetOf(good, 2), 'x'),
        {"description: record 2 does not unpack: it does not begin with a whole header"});
    row("description without a NUL", withDescription("text"),
        {"description: the description is not ended by a NUL"});
    row("description too long", withDescription(QByteArray(512, 'x') + '\0'),
        {"description: the description has 512 bytes, the reader shows none above 511"});
    row("topic dictionary",
        soundLexicon().setIndex(QByteArray("#\0cat\0\0", 7)).container().build(),
        {"index: the first key begins with \"#\", which marks a topic dictionary"});
    row("index without an end",
        soundLexicon().setIndex(QByteArray("ant\0cat\0", 8)).container().build(),
        {"index: the list of keys is not ended by an empty key"});
    row("index cut in a key",
        soundLexicon().setIndex(QByteArray("ant\0cat", 7)).container().build(),
        {"index: the list of keys is not ended by an empty key",
         "index: there are 1 keys for 2 word records"});
    row("too few keys", soundLexicon().setIndex(QByteArray("ant\0\0", 5)).container().build(),
        {"index: there are 1 keys for 2 word records"});
    row("too many keys",
        soundLexicon().setIndex(QByteArray("ant\0cat\0dog\0\0", 13)).container().build(),
        {"index: there are 3 keys for 2 word records"});
    row("record without an entry", withSecondRecord(QByteArray(1, '\0')),
        {"layout: record 6 holds no entry"});
    row("empty record", withSecondRecord({}), {"layout: record 6 holds no entry"});
    row("record ends within a headword", withSecondRecord("bee"),
        {"layout: record 6 ends within an entry"});
    row("record ends within an article", withSecondRecord(QByteArray("bee\0Biene", 9)),
        {"layout: record 6 ends within an entry"});
    row("record without an end", withSecondRecord(QByteArray("bee\0Biene\0", 10)),
        {"layout: record 6 is not ended by an empty headword"});
    row("bytes behind the end of a record", withSecondRecord(QByteArray("bee\0Biene\0\0x", 12)),
        {"layout: record 6 goes on behind the empty headword that ends it"});
    const QByteArray longWord(512, 'c');
    row("headword too long",
        withSecondRecord("bee" + QByteArray("\0x\0", 3) + longWord + QByteArray("\0x\0\0", 4)),
        {"layout: record 6: a headword has 512 bytes, the reader shows none above 511: "
         "\"cccccccccccccccccccccccccccccccccccccccc\""});
    row("headwords out of order", withSecondRecord(QByteArray("cat\0x\0bee\0x\0\0", 13)),
        {"order: record 6: \"bee\" stands behind \"cat\""});
    row("records out of order",
        DictionaryWriter().addRecord({{"cat", "x"}}).addRecord({{"ant", "x"}}).container().build(),
        {"keys: the key \"ant\" of record 6 does not sort after \"cat\" in the record before it",
         "order: record 6: \"ant\" stands behind \"cat\""});
    row("key after its first headword",
        DictionaryWriter().addRecord({{"ant", "x"}}).setLastKey("bee").container().build(),
        {"keys: the key \"bee\" of record 5 sorts after its first headword \"ant\""});
    row("key not after the record before it", soundLexicon().setLastKey("BEE").container().build(),
        {"keys: the key \"BEE\" of record 6 does not sort after \"Bee\" in the record before it"});
    row("words that fold alike in two records",
        DictionaryWriter().addRecord({{"set", "x"}}).addRecord({{"Set", "x"}}).container().build(),
        {"keys: the key \"Set\" of record 6 does not sort after \"set\" in the record before it"});
    row("headword in Latin-1 out of order", withSecondRecord(QByteArray("\xE4\0x\0zoo\0x\0\0", 11)),
        {"order: record 6: \"zoo\" stands behind \"ä\""});
    return all;
}

} // namespace teskel::test
