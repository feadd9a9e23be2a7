// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/textrecord.h"
#include "dictionary/wordindex.h"

#include <QFile>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QtPalmDatabase;
class QtRecords;

namespace teskel
{

/// Takes out of a damaged lexicon what can still be read.
///
/// A record whose checksum does not hold is lost as a whole: nobody can tell which of its bytes are
/// true. Records that the list does not name any more are looked for in the whole file.
class Salvage
{
public:
    using Entry = std::pair<std::string, std::string>; ///< headword and article, Latin-1

    /// Reads the file; once. False only when it cannot be read at all, with the reason in `error`.
    bool read(const std::string& path, std::string& error);

    /// In the order of the file.
    const std::vector<Entry>& entries() const { return _entries; }
    /// Rich text, Latin-1; empty when it is lost.
    const std::string& description() const { return _description; }
    /// A sentence for each record that is lost or is not whole, UTF-8.
    const std::vector<std::string>& losses() const { return _losses; }

private:
    void readIndex(QtRecords& records);
    void readDescription(QtRecords& records);
    void readWordRecord(QtRecords& records, unsigned number);
    void searchForRecords();
    MemberStatus unpackAt(qint64 offset, MemberBlock& block);
    void takeEntries(const TextRecord& record, const std::string& name);
    void take(std::string_view headword, std::string_view article);
    void takeFoundRecord(MemberBlock block, qint64 offset);
    void lose(const std::string& sentence) { _losses.push_back(sentence); }
    std::string headwordsOf(unsigned wordRecord) const;

    QFile _file;
    WordIndex _index;
    std::set<qint64> _known; ///< offsets of records that unpacked
    std::vector<Entry> _entries;
    std::string _description;
    bool _hasDescription = false;
    std::vector<std::string> _losses;
};

} // namespace teskel
