// SPDX-License-Identifier: MIT
#include "lexicon/sources/tei/teinode.h"

namespace teskel
{

namespace
{
void gather(const TeiNode& node, QString& text)
{
    text += node.text;
    for (const TeiNode& child : node.children)
        gather(child, text);
}
} // namespace

std::string TeiNode::content() const
{
    QString whole;
    gather(*this, whole);
    return whole.simplified().toStdString();
}

} // namespace teskel
