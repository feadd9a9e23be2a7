// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace teskel::test
{

/// The positive number in an environment variable, else `usual`.
inline int environmentNumber(const char* name, int usual)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber && number > 0 ? number : usual;
}

} // namespace teskel::test
