// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/memberstatus.h"

class CBitBuffer;

namespace teskel
{

class OutputWindow;

/// Decodes method 4 until `output` is full. Every stream means something: always Ok.
MemberStatus decodeFastest(CBitBuffer& bits, OutputWindow& output);

} // namespace teskel
