// SPDX-License-Identifier: MIT
#pragma once

class CBitBuffer;

namespace teskel
{

class OutputWindow;

/// Decodes method 4 until `output` is full. Every stream means something, so it cannot fail.
void decodeFastest(CBitBuffer& bits, OutputWindow& output);

} // namespace teskel
