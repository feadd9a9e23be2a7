// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/verify/verifiedfile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Holds a dictionary file to the rules of its format: makes the checks of the table, all of them
/// unless some are selected.
class LexiconVerifier
{
public:
    LexiconVerifier();

    /// Makes the named check and those that it needs, besides others that were selected so. False
    /// when there is no check of that name.
    bool select(std::string_view name);
    /// Makes the checks that need no word record.
    void selectQuick();

    /// Checks the file, once. False only when it cannot be read at all, with the reason in `error`.
    bool run(const std::string& path, std::string& error);

    /// Empty when the file is valid.
    const std::vector<Finding>& findings() const { return _file.findings(); }
    uint64_t wordRecords() const { return _wordRecords; }
    /// Nothing when word records were not looked into.
    std::optional<uint64_t> headwords() const { return _headwords; }
    /// Names of the checks that were not selected.
    std::vector<std::string> leftOut() const;

private:
    bool isDue(size_t place) const;
    void checkWordRecords();
    void checkWordRecord(WordRecord& record);

    VerifiedFile _file;
    std::vector<bool> _isSelected; ///< by place in the table
    std::vector<bool> _holds;      ///< likewise; of a record's checks, for the last record
    bool _hasSelection = false;
    std::optional<uint64_t> _headwords;
    uint64_t _wordRecords = 0;
};

} // namespace teskel
