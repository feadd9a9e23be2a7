// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// An article of a StarDict dictionary, taken apart into its fields. UTF-8.
///
/// The types that can be shown are "m" (plain), "l" (plain, in the encoding of whoever made it),
/// "t" (pronunciation), "h" (HTML), "x" (XDXF) and "g" (Pango).
struct StarDictArticle {
    using Decoded = std::function<std::string_view(char type, std::string_view text)>;

    std::string pronunciation; ///< plain
    std::string plain;         ///< the plain fields, when there are no others
    std::string rich;          ///< all fields as rich text, when some of them are
    std::vector<char> skipped; ///< types of the fields that cannot be shown
    bool wasLatin1 = false;    ///< a field of type "l" was no UTF-8
    bool isDamaged = false;    ///< a field is longer than the article; what is there was taken

    /// @param typeSequence  the types of all articles; empty when `data` has them
    /// @param decoded       the UTF-8 form of a field's text, alive until the next call; without
    ///                      it texts are taken as they are
    static StarDictArticle parse(std::string_view data, std::string_view typeSequence,
                                 const Decoded& decoded = {});
};

} // namespace teskel
