// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QStringList>

namespace teskel::test
{

/// An archive that archivers accept: main header, the members by the names 0, 1, 2..., end mark.
/// The members are such as teskel::ArjMember::pack() makes.
[[nodiscard]] QByteArray archiveOf(const QByteArrayList& members);

/// Runs an archiver in a directory to its end; the exit code. When that is not 0, what it said is
/// printed.
[[nodiscard]] int runArchiver(const QString& program, const QStringList& arguments,
                              const QString& directory);

} // namespace teskel::test
