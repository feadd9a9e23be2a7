// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/verify/verifiedfile.h"

/// Checks of a word record. Each returns whether the checks that need it may go on, and reports
/// what does not hold.
namespace teskel::checks
{

/// Also unpacks the record for the checks behind it.
bool unpack(VerifiedFile& file, WordRecord& record);
bool layout(VerifiedFile& file, WordRecord& record);
bool keys(VerifiedFile& file, WordRecord& record);
bool order(VerifiedFile& file, WordRecord& record);

} // namespace teskel::checks
