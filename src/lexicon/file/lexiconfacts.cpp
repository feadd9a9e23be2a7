// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconfacts.h"

#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/packedrecord.h"
#include "lexicon/file/palmfile.h"

#include <set>

namespace teskel
{

LexiconReader::Status LexiconFacts::gather(LexiconReader& reader, const std::string& path,
                                           std::string& error)
{
    name = reader.name();
    description = reader.description();
    records = reader.recordCount();
    const auto count = [this](std::string_view, std::string_view) {
        ++headwords;
        return true;
    };
    const LexiconReader::Status status = reader.visitFrom({}, count, error);
    if (status == LexiconReader::Status::Ok && !gatherRecords(path, error))
        return LexiconReader::Status::Unreadable;
    return status;
}

bool LexiconFacts::gatherRecords(const std::string& path, std::string& error)
{
    PalmFile file;
    if (!file.open(path, error))
        return false;
    fileBytes = file.size();
    std::set<unsigned> used;
    for (unsigned i = 0; i < file.offsets().size(); ++i) {
        const std::string bytes = file.record(i);
        if (i == 0)
            indexBytes = bytes.size();
        if (i < limits::firstWordRecord)
            continue;
        const PackedRecord record(bytes);
        packedBytes += bytes.size();
        textBytes += record.unpackedSize();
        used.insert(record.method());
    }
    for (const unsigned method : used)
        methods += (methods.empty() ? "" : ", ") + std::to_string(method);
    return true;
}

} // namespace teskel
