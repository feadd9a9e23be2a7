// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/container/qtpalmdb.h"
#include "dictionary/textrecord.h"
#include "dictionary/wordindex.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace teskel
{

/// Checks a dictionary file against every rule of its format.
///
/// The checks have names, which begin the sentences about what they found:
/// container, creator, records, offsets, index, description, unpack, layout, order, keys.
class LexiconVerifier
{
public:
    /// Checks the file. False only when it cannot be read at all, with the reason in `error`.
    bool run(const std::string& path, std::string& error);

    /// One sentence for each finding, "name: what is wrong"; empty when the file is valid.
    const std::vector<std::string>& findings() const { return _findings; }
    uint64_t headwords() const { return _headwords; }
    uint64_t wordRecords() const { return _wordRecords; }

private:
    bool checkContainer(const QString& name);
    bool checkCreator();
    bool checkRecords();
    bool checkOffsets();
    void checkIndex();
    void checkDescription();
    void checkWordRecord(unsigned number);
    bool checkLayout(unsigned number, const TextRecord& record);
    void checkOrder(unsigned number, const char* headword);
    void checkKey(unsigned number, const char* firstHeadword);
    std::optional<TextRecord> unpacked(unsigned number, const char* check);
    void report(const std::string& check, const std::string& sentence);

    QtPalmDatabase _database;
    QtRecords& _records = *_database.getRecords();
    WordIndex _index;
    std::vector<std::string> _findings;
    std::string _lastHeadword;
    bool _hasLastHeadword = false;
    uint64_t _headwords = 0;
    uint64_t _wordRecords = 0;
};

} // namespace teskel
