// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cbitbuffer.h"
#include "dictionary/cbuffer.h"
#include "dictionary/cdecoder.h"
#include "dictionary/cfileheader.h"

/// Unpacks the ARJ member in `source` into a new block of exactly the size its header names.
/// @return the block, which the caller frees with free(), or null on any failure
void* DecompressBuffer(void* source, long sourceSize);

/// The same into the caller's block; never writes past its end.
bool DecompressBuffer(void* target, long targetSize, void* source, long sourceSize);
