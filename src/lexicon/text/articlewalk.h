// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace teskel
{

/// Walks through an article of a lexicon and knows where its lines begin.
///
/// A line begins behind a line feed and behind a tag that breaks the line, such as "<br>"; blanks,
/// other tags and a kind of word in italics, as it stands in front of its first sense, do not end a
/// line's beginning.
class ArticleWalk
{
public:
    enum class Kind {
        Tag,       ///< a whole tag or comment
        Reference, ///< a whole letter reference
        Text,      ///< letters and signs in a row, or a single digit or blank of any kind
    };
    struct Step {
        Kind kind = Kind::Text;
        std::string_view text;
        std::size_t end = 0;      ///< where the step ends in the article
        bool atLineStart = false; ///< whether it stands at a line's beginning
    };

    /// Whether a kind of word in front of its first sense is one step: not in the plain form, which
    /// knows no such senses.
    enum class Labels { Known, Unknown };

    /// `article` must outlive the walk.
    explicit ArticleWalk(std::string_view article, Labels labels = Labels::Known)
        : _article(article)
        , _knowsLabels(labels == Labels::Known)
    {
    }

    /// The next step; false at the end.
    bool next(Step& step);

private:
    std::string_view _article;
    std::size_t _position = 0;
    bool _knowsLabels;
    bool _atLineStart = true;
};

} // namespace teskel
