// SPDX-License-Identifier: MIT
#include "files/reversename.h"

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

struct SplitName {
    QString base;
    QString suffix;
};

SplitName splitEdition(const QString& name)
{
    for (const QString& edition : {u"Gold"_s, u"Pro"_s, u"_"_s}) {
        if (name.endsWith(edition))
            return {name.left(name.indexOf(edition)), edition};
    }
    const qsizetype underscore = name.indexOf(u'_');
    if (underscore >= 0)
        return {name.left(underscore), name.mid(underscore)};
    return {name, QString()};
}

} // namespace

QString reverseDictionaryName(const QString& name)
{
    if (!name.contains(u'2'))
        return {};
    const auto [base, suffix] = splitEdition(name);
    // Without a "2" in the base the position is -1, and both sides are the whole base.
    const qsizetype position = base.indexOf(u'2');
    return base.mid(position + 1) + u'2' + base.left(position) + suffix;
}

} // namespace teskel
