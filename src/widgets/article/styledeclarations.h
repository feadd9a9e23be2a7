// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace teskel
{

/// Calls `take` with the name and the value of each declaration in a style attribute or in a style
/// sheet, as they stand. A selector may be taken for a name, never a declaration for none.
template<typename Take>
void forEachDeclaration(QStringView style, Take take)
{
    qsizetype end = 0;
    for (qsizetype begin = 0; begin < style.size(); begin = end + 1) {
        end = begin;
        while (end < style.size() && style.at(end) != u';' && style.at(end) != u'{' &&
               style.at(end) != u'}')
            ++end;
        const QStringView declaration = style.sliced(begin, end - begin);
        const qsizetype colon = declaration.indexOf(u':');
        if (colon >= 0)
            take(declaration.first(colon).trimmed(), declaration.sliced(colon + 1).trimmed());
    }
}

} // namespace teskel
