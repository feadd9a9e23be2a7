// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace teskel::test
{

/// Counts how often a file of a directory is put in place, by a rename or under its own name, while
/// it lives.
class ReplacementCount
{
public:
    explicit ReplacementCount(const QString& directory)
        : _watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        _isWatching = ::inotify_add_watch(_watch, QFile::encodeName(directory).constData(),
                                          IN_MOVED_TO | IN_CREATE) >= 0;
    }
    ~ReplacementCount() { ::close(_watch); }
    Q_DISABLE_COPY_MOVE(ReplacementCount)

    /// Replacements so far; -1 where that cannot be told.
    [[nodiscard]] int count() const
    {
        alignas(inotify_event) std::array<char, 16'384> events{};
        for (;;) {
            const ssize_t size = ::read(_watch, events.data(), events.size());
            if (size <= 0)
                return _isWatching ? _count : -1;
            for (ssize_t at = 0; at < size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
                if ((event->mask & IN_MOVED_TO) != 0)
                    ++_count;
                at += static_cast<ssize_t>(sizeof(inotify_event)) + event->len;
            }
        }
    }

private:
    int _watch;
    bool _isWatching = false;
    mutable int _count = 0;
};

} // namespace teskel::test
