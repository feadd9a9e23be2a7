// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/memberstatus.h"

class CBitBuffer;

namespace teskel
{

class OutputWindow;

/// Decodes methods 1 to 3 until `output` is full: Ok, or BadCodes at damaged code tables.
MemberStatus decodeHuffman(CBitBuffer& bits, OutputWindow& output);

} // namespace teskel
