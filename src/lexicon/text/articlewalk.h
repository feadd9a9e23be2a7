// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace teskel
{

/// Walks through an article of a lexicon and knows where its lines begin.
///
/// A line begins behind a line feed and behind a tag that breaks the line, such as "<br>"; blanks
/// and other tags do not end a line's beginning.
class ArticleWalk
{
public:
    enum class Kind {
        Tag,       ///< a whole tag or comment
        Reference, ///< a whole letter reference
        Byte,
    };
    struct Step {
        Kind kind = Kind::Byte;
        std::string_view text;
        std::size_t end = 0;      ///< where the step ends in the article
        bool atLineStart = false; ///< whether it stands at a line's beginning
    };

    /// `article` must outlive the walk.
    explicit ArticleWalk(std::string_view article)
        : _article(article)
    {
    }

    /// The next step; false at the end.
    bool next(Step& step);

private:
    std::string_view _article;
    std::size_t _position = 0;
    bool _atLineStart = true;
};

} // namespace teskel
