// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/container/qtpalmdb.h"
#include "dictionary/textrecord.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/keylist.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace teskel
{

/// Something that a check found wrong.
struct Finding {
    std::string check;    ///< the check's name
    std::string sentence; ///< UTF-8, without the file's name

    /// "name: sentence"
    std::string text() const { return check + ": " + sentence; }
};

/// A word record on its way through the checks.
struct WordRecord {
    unsigned number = 0; ///< in the file
    /// Set by the check that unpacks it; whole when the one that looks at its layout held.
    std::optional<TextRecord> text;
    /// The last headword before it, Latin-1; empty in the first record.
    std::optional<std::string> headwordBefore;
};

/// A file while it is checked: what the checks look at, and what they found.
class VerifiedFile
{
public:
    static constexpr unsigned indexRecord = 0;
    static constexpr unsigned descriptionRecord = 2;

    /// False when not even the header is there.
    bool load(const QString& path) { return _database.load(path) == 0; }

    QtPalmDatabase& database() { return _database; }
    QtRecords& records() { return _records; }
    /// Word records that the record list names.
    unsigned wordRecords() const;
    /// The keys of the word index, read at the first request.
    const KeyList& index();
    /// Unpacks a record; reports why it cannot.
    std::optional<TextRecord> unpacked(unsigned number);

    /// The check in whose name findings are reported.
    void setCheck(const char* name) { _check = name; }
    void report(const std::string& sentence) { _findings.push_back({_check, sentence}); }
    const std::vector<Finding>& findings() const { return _findings; }

private:
    QtPalmDatabase _database;
    QtRecords& _records = *_database.getRecords();
    std::optional<KeyList> _index;
    const char* _check = "";
    std::vector<Finding> _findings;
};

/// How findings name a record.
std::string recordName(unsigned number);

} // namespace teskel
