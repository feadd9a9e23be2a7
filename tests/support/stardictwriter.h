// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace teskel::test
{

/// Writes StarDict dictionaries, whole or damaged on purpose. Words come in the order of the index.
class StarDictWriter
{
public:
    StarDictWriter& setName(const QByteArray& name);
    /// The types of all articles; without them each article holds its own.
    StarDictWriter& setTypeSequence(const QByteArray& types);
    /// Offsets of 64 bits instead of 32.
    StarDictWriter& setLongOffsets();
    StarDictWriter& add(const QByteArray& word, const QByteArray& article);
    /// Another word for the article of the word added last.
    StarDictWriter& addAlternative(const QByteArray& word);

    /// Replaces what the files would say of themselves.
    StarDictWriter& claim(const QByteArray& key, const QByteArray& value);
    StarDictWriter& claimPlace(quint64 offset, quint32 size); ///< of the word added last
    StarDictWriter& claimTarget(quint32 word);                ///< of the alternative added last

    [[nodiscard]] QByteArray info() const;
    [[nodiscard]] QByteArray index() const;
    [[nodiscard]] QByteArray alternatives() const;
    [[nodiscard]] QByteArray articles() const { return _articles; }
    /// Writes "base.ifo", "base.idx", "base.dict" and, if there are alternatives, "base.syn".
    [[nodiscard]] bool write(const QString& base) const;

private:
    struct Word {
        QByteArray text;
        quint64 offset;
        quint32 size;
    };
    struct Alternative {
        QByteArray text;
        quint32 word;
    };
    QByteArray _name = "A dictionary made for a test";
    QByteArray _types = "m";
    bool _hasLongOffsets = false;
    QList<Word> _words;
    QList<Alternative> _alternatives;
    QByteArray _articles;
    QByteArray _claims;
};

} // namespace teskel::test
