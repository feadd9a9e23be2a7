// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/huffmantable.h"
#include "dictionary/unpacking/memberdecoder.h"

class CBitBuffer;

namespace teskel
{

class OutputWindow;

/// The code tables of one block of methods 1 to 3.
struct StaticHuffmanTables {
    HuffmanTable<12, arj::charCodes> characters;
    HuffmanTable<8, arj::positionCodes> positions;
    HuffmanTable<8, arj::lengthCodes> lengths;

    static constexpr unsigned noLength = HuffmanTable<8, arj::lengthCodes>::noSymbol;
};

/// Decodes methods 1 to 3 until `output` is full: Ok, or BadCodes at damaged code tables.
MemberStatus decodeStaticHuffman(CBitBuffer& bits, StaticHuffmanTables& tables,
                                 OutputWindow& output);

} // namespace teskel
