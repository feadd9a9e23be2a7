// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QString>

class Config;

namespace teskel
{

/// The words that were looked up last, six at most, as Latin-1.
///
/// They live in their group of the settings file, which the caller selects. Another reader may have
/// stored its own there since this one looked: then those come first, and the words that were added
/// here go to them as if they were looked up now.
class WordHistory
{
public:
    static constexpr qsizetype most = 6;

    /// Takes the words of the file in place of those that are held.
    void load(const Config& config);
    /// Writes the words, after it took in those that another reader stored meanwhile.
    void write(Config& config);
    /// To be called when what write() wrote is in the file.
    void settle(const Config& config) { _seen = wordsIn(config); }

    /// Adds a word, which ends before its first character outside Latin-1: at the end until six are
    /// held, then at the front, where the last one is dropped.
    /// @return false when it is held already, which changes nothing
    bool add(const QString& word);

    const QByteArrayList& words() const { return _words; }

private:
    static QByteArrayList wordsIn(const Config& config);
    bool add(const QByteArray& word);

    QByteArrayList _words;
    QByteArrayList _added; ///< since load()
    QByteArrayList _seen;  ///< in the file, when it was last read or written
};

} // namespace teskel
