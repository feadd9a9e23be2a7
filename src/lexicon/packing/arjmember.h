// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjencoder.h"

#include <string>
#include <string_view>

namespace teskel
{

/// The form of a packed record: an ARJ local header followed by the packed bytes.
///
/// Every member carries the same name and the same date, so that equal content gives equal bytes.
/// Between an archive's main header and its end mark it is a member that `arj` accepts.
class ArjMember
{
public:
    /// Packs `data` (at most 32,767 bytes) with `encoder`.
    static std::string pack(std::string_view data, ArjEncoder& encoder);
};

} // namespace teskel
