// SPDX-License-Identifier: MIT
#pragma once

namespace teskel
{

/// How much an input looks like a source of one kind; the kind that it looks like most takes it.
enum class Likeness {
    None,     ///< nothing speaks for it
    Possible, ///< the content could be read so
    Named,    ///< the name says so
    Certain,  ///< the content is of that kind and of no other
};

} // namespace teskel
