// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace teskel::test
{

/// Packs with the system's `arj` and hands out the one member, without the archive around it.
/// @param method  1 to 4
/// @return the member, header first; empty when that fails, with the reason in `error`
[[nodiscard]] QByteArray packWithArj(const QByteArray& original, int method, QString& error);

/// Cuts an archive's main header and end mark off; empty when `archive` does not have them.
[[nodiscard]] QByteArray memberOfArchive(const QByteArray& archive);

/// Whether `arj` is installed.
[[nodiscard]] bool hasArj();

} // namespace teskel::test
