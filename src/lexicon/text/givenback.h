// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Texts of a lexicon as people read and edit them: letter references give their characters back,
/// where a build writes the same references again.
namespace teskel::givenback
{

/// An article, UTF-8. What was made by a build is made again from it, byte for byte: where that
/// needs a reference, such as a digit that would be read as a sense number, it stays.
std::string article(std::string_view latin1);

/// A description, UTF-8, likewise. Its digits are no references.
std::string description(std::string_view latin1);

/// Whether a text has letter references.
bool hasReferences(std::string_view latin1);

} // namespace teskel::givenback
