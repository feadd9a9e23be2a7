// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace teskel
{

/// Takes the places of standard input, output and error that the program was started without, so
/// that no file which is opened later gets them and messages go into it. To be called first of all.
///
/// What is opened there cannot be used, so that reading and writing still fail.
inline void openStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) >= 0 || errno != EBADF)
            continue;
        // The lowest that is free is this one. Children inherit it, as they would an open one.
        (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace teskel
