// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <functional>
#include <optional>

namespace teskel::test
{

/// Runs `action` in a thread of its own, in which the system call `failing`, counted from 0, is not
/// made but fails with the error number `error`. Calls that have to do with threads and memory are
/// neither counted nor made to fail.
/// @return the numbers of the calls that were counted; nothing where the kernel lets nobody watch
[[nodiscard]] std::optional<QList<int>> runWithFault(const std::function<void()>& action,
                                                     qsizetype failing, int error);

} // namespace teskel::test
