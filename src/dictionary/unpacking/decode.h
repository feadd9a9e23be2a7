// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cdecoder.h"
#include "dictionary/unpacking/cfileheader.h"

/// Unpacks the ARJ member in `source` into a new block of exactly the size its header names.
/// @return the block, which the caller frees with free(), or null on any failure
void* DecompressBuffer(void* source, long sourceSize);

/// The same into the caller's block; never writes past its end.
bool DecompressBuffer(void* target, long targetSize, void* source, long sourceSize);
