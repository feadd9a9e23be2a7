// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/verify/verifiedfile.h"

/// Checks of the two records that stand for the whole lexicon. Each returns whether its rule holds,
/// and reports what does not.
namespace teskel::checks
{

bool index(VerifiedFile& file);
bool description(VerifiedFile& file);

} // namespace teskel::checks
