// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/textrecord.h"
#include "lexicon/entries/entryfile.h"
#include "lexicon/file/keylist.h"

#include <QFile>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class QtPalmDatabase;
class QtRecords;

namespace teskel
{

/// Takes out of a damaged lexicon what can still be read.
///
/// A record whose checksum does not hold is lost as a whole: nobody can tell which of its bytes are
/// true. Records that the list does not name any more are looked for in the whole file. What is
/// taken out waits in a temporary file, so that memory does not grow with the lexicon.
class Salvage
{
public:
    /// Reads the file; once. False only when it cannot be read at all, with the reason in `error`.
    bool read(const std::string& path, std::string& error);

    /// In the order of the file; the salvage must outlive the stream.
    std::unique_ptr<EntryStream> entries() { return _entries.read(); }
    uint64_t entryCount() const { return _entries.count(); }
    /// A sentence about the temporary file, when something is wrong with it.
    const std::string& entryError() const { return _entries.error(); }
    /// Whether a text has letter references.
    bool hasReferences() const { return _hasReferences; }
    /// Rich text, Latin-1; empty when it is lost.
    const std::string& description() const { return _description; }
    /// A sentence for each record that is lost or is not whole, UTF-8; one for neighbours of which
    /// no more is known.
    const std::vector<std::string>& losses() const { return _losses; }

private:
    /// What is said of a record, or of several.
    struct Fate {
        std::string_view one;
        std::string_view many;
    };
    struct LostRecords {
        unsigned first = 0;
        unsigned next = 0; ///< behind the last
        std::string reason;
    };

    void readIndex(QtRecords& records);
    void readDescription(QtRecords& records);
    void readWordRecord(QtRecords& records, unsigned number);
    void searchForRecords();
    MemberStatus unpackAt(qint64 offset, MemberBlock& block);
    MemberStatus unpack(QByteArrayView bytes, qint64 offset, MemberBlock& block);
    void takeEntries(const TextRecord& record, const std::string& name);
    void take(std::string_view headword, std::string_view article);
    void takeFoundRecord(MemberBlock block, qint64 offset);
    void lose(const std::string& sentence) { _losses.push_back(sentence); }
    void loseRecord(unsigned number, const Fate& fate, const std::string& reason);
    std::string headwordsOf(unsigned wordRecord) const;

    QFile _file;
    KeyList _index;
    std::set<qint64> _known; ///< offsets of records that unpacked
    EntryFile _entries;
    std::string _text; ///< of the entry that is put aside
    bool _hasReferences = false;
    std::string _description;
    bool _hasDescription = false;
    std::vector<std::string> _losses;
    LostRecords _lost; ///< what the last of the losses is about, if it is lost records
};

} // namespace teskel
