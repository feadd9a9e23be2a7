// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/inputdevice.h"
#include "lexicon/sources/lexiconsource.h"
#include "lexicon/sources/likeness.h"
#include "lexicon/sources/tei/tagwatch.h"
#include "lexicon/sources/tei/teinode.h"

#include <QXmlStreamReader>

#include <memory>

namespace teskel
{

/// Reads the entries of a dictionary in TEI (P5, or P4 as far as it is the same), as the FreeDict
/// project keeps them. One entry is in memory at a time; nothing but the file is read.
class TeiSource : public LexiconSource
{
public:
    /// `head` are the first bytes of the file, if there is one of that name.
    static Likeness looksLike(const std::string& path, std::string_view head);

    /// `input` stands at its beginning.
    explicit TeiSource(std::unique_ptr<InputFile> input);

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::PlainArticle; }

private:
    /// How deep elements may nest, and how much an element without others may hold.
    static constexpr int deepest = 64;
    static constexpr uint64_t largestEntry = 4U << 20;
    /// What a reference may become, characters.
    static constexpr int longestEntity = 4096;

    void prepareText();
    bool next();
    bool readNode(TeiNode& node);
    void takeEntities(EntryIntake& intake);
    void takeTitle();
    void takeEntry(EntryIntake& intake);
    std::string place(int64_t line) const;

    std::unique_ptr<InputFile> _input;
    InputDevice _device;
    TagWatch _tags;
    QXmlStreamReader _reader;
    int _depth = 0;
    uint64_t _entryBegin = 0; ///< amount of the input read when the entry began
    std::string _failure;
    std::string _excess; ///< a sentence about entries out of measure
    uint32_t _entryNumber = 0;
};

} // namespace teskel
