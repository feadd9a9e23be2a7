// SPDX-License-Identifier: MIT
#include "tests/support/dictionarywriter.h"

#include "tests/support/arjmember.h"

namespace teskel::test
{

DictionaryWriter& DictionaryWriter::setDescription(const QByteArray& text)
{
    _description = text;
    return *this;
}

DictionaryWriter& DictionaryWriter::addRecord(const QList<Entry>& entries)
{
    return addPackedRecord(entries.isEmpty() ? QByteArray("?") : entries.first().first,
                           literalMember(recordText(entries)));
}

DictionaryWriter& DictionaryWriter::addEntries(const QList<Entry>& entries, int perRecord)
{
    for (qsizetype i = 0; i < entries.size(); i += perRecord)
        addRecord(entries.mid(i, perRecord));
    return *this;
}

DictionaryWriter& DictionaryWriter::addPackedRecord(const QByteArray& key, const QByteArray& packed)
{
    _keys.append(key);
    _packed.append(packed);
    return *this;
}

DictionaryWriter& DictionaryWriter::setLastKey(const QByteArray& key)
{
    _keys.last() = key;
    return *this;
}

DictionaryWriter& DictionaryWriter::setIndex(const QByteArray& bytes)
{
    _index = bytes;
    _hasIndex = true;
    return *this;
}

PalmWriter DictionaryWriter::container() const
{
    const QByteArray end(1, '\0');
    QByteArray index = _index;
    if (!_hasIndex) {
        for (const QByteArray& key : _keys)
            index += key + end;
        index += end;
    }
    PalmWriter writer;
    writer.addRecord(index);
    writer.addRecord(end);
    writer.addRecord(literalMember(_description + end));
    writer.addRecord(end);
    writer.addRecord(end);
    for (const QByteArray& record : _packed)
        writer.addRecord(record);
    return writer;
}

bool DictionaryWriter::write(const QString& path) const
{
    return container().write(path);
}

QByteArray DictionaryWriter::recordText(const QList<Entry>& entries)
{
    const QByteArray end(1, '\0');
    QByteArray text;
    for (const Entry& entry : entries)
        text += entry.first + end + entry.second + end;
    return text + end;
}

} // namespace teskel::test
