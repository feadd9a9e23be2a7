// SPDX-License-Identifier: MIT
#include "lexicon/verify/checktable.h"

#include "lexicon/verify/containerchecks.h"
#include "lexicon/verify/contentchecks.h"
#include "lexicon/verify/recordchecks.h"

#include <algorithm>

namespace teskel
{

namespace
{

constexpr Check table[] = {
    {"container", "The header and the record list are complete.", nullptr, checks::container,
     nullptr},
    {"creator", "The creator is \"TSKL\".", "container", checks::creator, nullptr},
    {"records", "There are at least 5 records.", "creator", checks::records, nullptr},
    {"offsets",
     "The records' offsets do not descend and lie within the file; every record but 1, 3 and 4 has "
     "bytes; none is larger than 64 MiB.",
     "records", checks::offsets, nullptr},
    {"index",
     "There is one key for each word record and an empty one at the end; the first does not begin "
     "with \"#\".",
     "offsets", checks::index, nullptr},
    {"description", "Record 2 unpacks to one text of at most 511 bytes.", "offsets",
     checks::description, nullptr},
    {"unpack", "Every word record unpacks and its checksum holds.", "offsets", nullptr,
     checks::unpack},
    {"layout",
     "Every word record is a row of entries with an empty headword at its end; headwords have at "
     "most 511 bytes.",
     "unpack", nullptr, checks::layout},
    {"keys",
     "Each key sorts after every headword before its record, and not after its first headword.",
     "layout", nullptr, checks::keys},
    {"order", "Headwords ascend.", "layout", nullptr, checks::order},
};

} // namespace

std::span<const Check> allChecks()
{
    return table;
}

size_t placeOfCheck(std::string_view name)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [name](const Check& check) { return check.name == name; });
    return static_cast<size_t>(found - std::begin(table));
}

} // namespace teskel
