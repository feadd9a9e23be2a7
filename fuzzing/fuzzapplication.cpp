// SPDX-License-Identifier: MIT
#include "fuzzing/fuzzapplication.h"

#include <QApplication>

namespace teskel::fuzz
{

void startApplication()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    if (qApp != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: a fuzzer ends where it stands.
    new QApplication(count, arguments);
}

} // namespace teskel::fuzz
