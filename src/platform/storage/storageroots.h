// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Where the kernel's view of the storage devices is read from.
struct StorageRoots {
    QString mountInfo = QStringLiteral("/proc/self/mountinfo");
    QString sysfs = QStringLiteral("/sys");
    QString dev = QStringLiteral("/dev");
};
