// SPDX-License-Identifier: MIT
#include "tests/support/damage/lexicondraft.h"

#include "lexicon/packing/arjmember.h"
#include "tests/support/arjmember.h"

#include <QtEndian>

namespace teskel::test
{

namespace
{
constexpr int entryCount = 60;
const QByteArray nul(1, '\0');

QByteArray german(int number)
{
    return "w" + QByteArray::number(number).rightJustified(3, '0');
}

template<typename Number>
QByteArray bytesOf(Number value)
{
    return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
}
} // namespace

LexiconDraft::LexiconDraft(QRandomGenerator& generator)
    : method(generator.bounded(1, 5))
    , description("<b>German-English</b>")
{
    const int perRecord = generator.bounded(3, 15);
    QList<Entry> entries{{"Ameise", "ant"}, {"Apfel", "apple"}, {"Haus", "1. house\n2. home"}};
    for (int number = 0; number < entryCount; ++number)
        entries.append({german(number), "<i>n</i> word " + german(generator.bounded(entryCount))});
    for (qsizetype at = 0; at < entries.size(); at += perRecord)
        records.append(entries.mid(at, perRecord));
}

QByteArrayList LexiconDraft::texts() const
{
    QByteArrayList texts;
    for (const QList<Entry>& entries : records)
        texts.append(DictionaryWriter::recordText(entries));
    return texts;
}

QByteArray LexiconDraft::packed(const QByteArray& text) const
{
    ArjEncoder encoder(method);
    return QByteArray::fromStdString(teskel::ArjMember::pack(
        {text.constData(), static_cast<std::size_t>(text.size())}, encoder));
}

QByteArrayList LexiconDraft::members() const
{
    QByteArrayList members;
    for (const QByteArray& text : texts())
        members.append(packed(text));
    return members;
}

QByteArrayList LexiconDraft::keys() const
{
    QByteArrayList keys;
    for (const QList<Entry>& entries : records)
        keys.append(entries.first().first);
    return keys;
}

PalmWriter LexiconDraft::containerOf(const QByteArray& index, const QByteArrayList& members) const
{
    PalmWriter writer;
    writer.addRecord(index).addRecord(nul).addRecord(packed(description + nul));
    writer.addRecord(nul).addRecord(nul);
    for (const QByteArray& member : members)
        writer.addRecord(member);
    return writer;
}

PalmWriter LexiconDraft::container(const QByteArrayList& members) const
{
    return containerOf(keys().join(nul) + nul + nul, members);
}

PalmWriter LexiconDraft::containerWithIndex(const QByteArray& index) const
{
    return containerOf(index, members());
}

QByteArray LexiconDraft::fileOfMembers(const QByteArrayList& members) const
{
    return container(members).build();
}

QByteArray LexiconDraft::fileOfTexts(const QByteArrayList& texts) const
{
    QByteArrayList members;
    for (const QByteArray& text : texts)
        members.append(packed(text));
    return fileOfMembers(members);
}

QByteArray LexiconDraft::fileWithIndex(const QByteArray& index) const
{
    return containerWithIndex(index).build();
}

QByteArray LexiconDraft::fileWithText(const QByteArray& text, QRandomGenerator& generator) const
{
    return fileWithMember(packed(text), generator);
}

QByteArray LexiconDraft::fileWithMember(const QByteArray& member, QRandomGenerator& generator) const
{
    QByteArrayList all = members();
    all[generator.bounded(all.size())] = member;
    return fileOfMembers(all);
}

QByteArray LexiconDraft::fileWithArticle(const QByteArray& article, QRandomGenerator& generator)
{
    QList<Entry>& entries = records[generator.bounded(records.size())];
    entries[generator.bounded(entries.size())].second = article;
    return file();
}

qsizetype randomPlace(const QByteArray& bytes, QRandomGenerator& generator)
{
    return generator.bounded(bytes.size());
}

QByteArray randomBytes(int count, QRandomGenerator& generator)
{
    QByteArray bytes;
    for (int number = 0; number < count; ++number)
        bytes.append(static_cast<char>(generator.bounded(256)));
    return bytes;
}

QByteArray patched(QByteArray bytes, qsizetype offset, const QByteArray& others)
{
    return bytes.replace(offset, others.size(), others);
}

QByteArray bigEndian16(quint32 value)
{
    return bytesOf(qToBigEndian(static_cast<quint16>(value)));
}

QByteArray bigEndian32(quint32 value)
{
    return bytesOf(qToBigEndian(value));
}

QByteArray littleEndian16(quint32 value)
{
    return bytesOf(qToLittleEndian(static_cast<quint16>(value)));
}

QByteArray littleEndian32(quint32 value)
{
    return bytesOf(qToLittleEndian(value));
}

} // namespace teskel::test
