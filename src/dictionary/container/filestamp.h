// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QFile;

namespace teskel
{

/// Tells an open file that nobody changed from one that was changed, replaced, or came with another
/// card.
class FileStamp
{
public:
    /// Of no file: never the same as any.
    FileStamp() = default;
    /// Of an open file as it is now.
    explicit FileStamp(const QFile& file);

    /// Whether `later`, taken later, is of the same file in the same state. No where that cannot be
    /// known: a file that changed just before this stamp was taken may change again and look alike.
    [[nodiscard]] bool isStill(const FileStamp& later) const;

private:
    struct State {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 modified = 0; // nanoseconds since 1970, as the next
        qint64 changed = 0;  // also where somebody set the time of modification back

        friend bool operator==(const State& a, const State& b) = default;
    };

    State _state;
    bool _isSettled = false;
};

} // namespace teskel
