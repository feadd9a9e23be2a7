// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayList>
#include <QString>

namespace teskel::bench
{

/// The word records of a dictionary as they stand in its file, packed. Ends the program with a
/// message when the file cannot be read.
[[nodiscard]] QByteArrayList packedRecords(const QString& path);

/// The members of an ARJ archive, without its main header and end mark; empty when it is not one.
[[nodiscard]] QByteArrayList membersOfArchive(const QByteArray& archive);

} // namespace teskel::bench
