// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/verify/verifiedfile.h"

/// Checks of the Palm database around the records. Each returns whether its rule holds, and reports
/// what does not.
namespace teskel::checks
{

bool container(VerifiedFile& file);
bool creator(VerifiedFile& file);
bool records(VerifiedFile& file);
bool offsets(VerifiedFile& file);

} // namespace teskel::checks
