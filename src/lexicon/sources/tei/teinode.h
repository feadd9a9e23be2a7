// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// An element of a TEI document, or a text in one.
struct TeiNode {
    QString name; ///< without its namespace; empty for a text
    QString type; ///< the attribute of that name
    QString text; ///< of a text
    std::vector<TeiNode> children;

    bool is(QStringView element) const { return name == element; }
    /// The text of the node and all below it, with single blanks, UTF-8.
    std::string content() const;
};

} // namespace teskel
