// SPDX-License-Identifier: MIT
#include "tests/support/stardictwriter.h"

#include "tests/support/palmwriter.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{
template<typename Number>
QByteArray bigEndian(Number value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}
} // namespace

StarDictWriter& StarDictWriter::setName(const QByteArray& name)
{
    _name = name;
    return *this;
}

StarDictWriter& StarDictWriter::setTypeSequence(const QByteArray& types)
{
    _types = types;
    return *this;
}

StarDictWriter& StarDictWriter::setLongOffsets()
{
    _hasLongOffsets = true;
    return *this;
}

StarDictWriter& StarDictWriter::add(const QByteArray& word, const QByteArray& article)
{
    _words.append(
        {word, static_cast<quint64>(_articles.size()), static_cast<quint32>(article.size())});
    _articles += article;
    return *this;
}

StarDictWriter& StarDictWriter::addAlternative(const QByteArray& word)
{
    _alternatives.append({word, static_cast<quint32>(_words.size() - 1)});
    return *this;
}

StarDictWriter& StarDictWriter::claim(const QByteArray& key, const QByteArray& value)
{
    _claims += key + '=' + value + '\n';
    return *this;
}

StarDictWriter& StarDictWriter::claimPlace(quint64 offset, quint32 size)
{
    _words.last().offset = offset;
    _words.last().size = size;
    return *this;
}

StarDictWriter& StarDictWriter::claimTarget(quint32 word)
{
    _alternatives.last().word = word;
    return *this;
}

QByteArray StarDictWriter::info() const
{
    QByteArray text = "StarDict's dict ifo file\nversion=3.0.0\nbookname=" + _name +
                      "\nwordcount=" + QByteArray::number(_words.size()) + '\n';
    if (!_alternatives.isEmpty())
        text += "synwordcount=" + QByteArray::number(_alternatives.size()) + '\n';
    text += "idxfilesize=" + QByteArray::number(index().size()) + '\n';
    if (_hasLongOffsets)
        text += "idxoffsetbits=64\n";
    if (!_types.isEmpty())
        text += "sametypesequence=" + _types + '\n';
    return text + _claims;
}

QByteArray StarDictWriter::index() const
{
    QByteArray bytes;
    for (const Word& word : _words)
        bytes += word.text + '\0' +
                 (_hasLongOffsets ? bigEndian(word.offset)
                                  : bigEndian(static_cast<quint32>(word.offset))) +
                 bigEndian(word.size);
    return bytes;
}

QByteArray StarDictWriter::alternatives() const
{
    QByteArray bytes;
    for (const Alternative& alternative : _alternatives)
        bytes += alternative.text + '\0' + bigEndian(alternative.word);
    return bytes;
}

bool StarDictWriter::write(const QString& base) const
{
    return writeFile(base + u".ifo"_s, info()) && writeFile(base + u".idx"_s, index()) &&
           writeFile(base + u".dict"_s, _articles) &&
           (_alternatives.isEmpty() || writeFile(base + u".syn"_s, alternatives()));
}

} // namespace teskel::test
