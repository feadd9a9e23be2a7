// SPDX-License-Identifier: MIT
#include "lexicon/verify/contentchecks.h"

#include "lexicon/text/counted.h"

#include <cstring>

namespace teskel::checks
{

bool index(VerifiedFile& file)
{
    const KeyList& list = file.index();
    const std::size_t keys = list.count();
    const size_t before = file.findings().size();
    if (list.isTopicIndex())
        file.report("the first key begins with \"#\", which marks a topic dictionary");
    if (!list.isEnded())
        file.report("the list of keys is not ended by an empty key");
    if (keys != file.wordRecords())
        file.report("there are " + std::to_string(keys) + " keys for " +
                    counted(file.wordRecords(), "word record"));
    return file.findings().size() == before;
}

bool description(VerifiedFile& file)
{
    const std::optional<TextRecord> record = file.unpacked(VerifiedFile::descriptionRecord);
    if (!record)
        return false;
    const std::size_t length = std::strlen(record->text());
    if (length >= record->size())
        file.report("the description is not ended by a NUL");
    else if (length > limits::descriptionBytes)
        file.report("the description has " + std::to_string(length) +
                    " bytes, the reader shows none above 511");
    else
        return true;
    return false;
}

} // namespace teskel::checks
