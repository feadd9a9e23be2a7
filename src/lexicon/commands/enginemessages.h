// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What the engine warns of while the program runs. Its warnings name no file and speak of its
/// insides; the commands say in sentences of their own what came of it.
namespace teskel::commands::enginemessages
{

/// Keeps the engine's warnings back from now on. Those of others are printed as sentences.
void keepBack();

/// Why the engine took a file for no lexicon, from its last warning, in words for people; empty
/// when there is nothing to add.
std::string reason();

} // namespace teskel::commands::enginemessages
