// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// The name of the dictionary that translates the other way round: Eng2GerGold gives Ger2EngGold.
///
/// A name is source, the digit 2, target and perhaps an edition suffix: "Gold", "Pro", "_" at the
/// end, or anything from a "_" on. The suffix is cut where its text first occurs, so a name that
/// holds it twice loses what lies between; a name whose only "2" lies in the suffix gets its base
/// on both sides (Eng_v2 gives Eng2Eng_v2). A name without a "2" has no reverse: empty.
QString reverseDictionaryName(const QString& name);

} // namespace teskel
