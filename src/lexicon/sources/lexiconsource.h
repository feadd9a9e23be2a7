// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryintake.h"
#include "lexicon/sources/input/sourcetext.h"

#include <string>
#include <string_view>

namespace teskel
{

/// Where the entries of a lexicon come from.
class LexiconSource
{
public:
    virtual ~LexiconSource() = default;

    /// Hands all entries to `intake`. On failure returns false and says why in `error`.
    virtual bool read(EntryIntake& intake, std::string& error) = 0;

    /// How the bytes of the source are read; before it is read.
    void setEncoding(const EncodingOptions& options) { _texts.setOptions(options); }
    /// False when what was read is hardly text in that encoding, with the reason in `error`.
    bool acceptsText(std::string& error) const { return _texts.isAccepted(_canReplace, error); }

    /// What the source says of itself, UTF-8, once it was read; empty when it says nothing.
    const std::string& description() const { return _description; }
    /// What kind of text the source's articles and its description are.
    virtual Latin1Converter::Text textKind() const = 0;

    /// The place of this source's entries among those of several sources: behind `order`.
    void setOrderBefore(uint32_t order) { _orderBefore = _lastOrder = order; }
    /// Makes the source hand over the opposite direction: each translation in an article is a
    /// headword then, and the headword its article.
    void reverse() { _isReversed = true; }
    /// The highest place that was given to an entry.
    uint32_t lastOrder() const { return _lastOrder; }

protected:
    LexiconSource() = default;
    LexiconSource(const LexiconSource&) = delete;
    LexiconSource& operator=(const LexiconSource&) = delete;

    /// Hands one entry on. `number` is its place in this source, from 1; no two entries of a source
    /// have the same.
    void add(EntryIntake& intake, std::string_view headword, std::string_view article,
             Latin1Converter::Text kind, uint32_t number, std::string_view where);

    /// Who knows best how the word is written.
    enum class Written {
        InText, ///< the text's first line, of which `key` is a simplified form
        AsKey,  ///< `key` itself; the first line of the text is that of the word nevertheless
    };
    /// Hands on an entry whose text is laid out as those of dictd dictionaries are: the word's own
    /// line, then plain text.
    void addLaidOut(EntryIntake& intake, std::string_view key, Written written,
                    std::string_view text, uint32_t number, std::string_view where);

    /// So many bytes more of the source were read, unpacked.
    void countRead(uint64_t bytes) { _readBytes += bytes; }
    /// False when the entries are longer than any dictionary makes them of so much that was read,
    /// as when thousands of words share a long article; `error` says so of `where`.
    bool isInMeasure(std::string_view where, std::string& error) const;

    std::string _description;
    SourceText _texts;
    bool _canReplace = true; ///< what is no text

private:
    uint32_t _orderBefore = 0;
    uint32_t _lastOrder = 0;
    bool _isReversed = false;
    uint64_t _readBytes = 0;
    uint64_t _entryBytes = 0; ///< of what was handed over
};

/// A line of a file, for people and programs: "words.tsv:17".
std::string placeInFile(std::string_view name, uint64_t line);

} // namespace teskel
