// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// Canonically composed text (NFC), in time by its length.
///
/// Letters with more than thirty marks are in no language, and sorting marks takes time by the
/// square of their number: behind every thirtieth the text gets a U+034F, as the Stream-Safe Text
/// Format of Unicode has it. What was composed once stays as it is.
QString composed(const QString& text);

} // namespace teskel
