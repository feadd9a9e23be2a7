// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <iosfwd>

namespace teskel
{

/// Shows on a terminal how far a long task has come: one line that overwrites itself with the
/// phase, the entries done and, where the number of all entries is known, the time that is left.
class Progress
{
public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    /// Nothing is shown when `out` is null. `now` tells the time.
    explicit Progress(std::ostream* out = nullptr, Now now = Clock::now)
        : _out(out)
        , _now(std::move(now))
    {
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    /// Takes the line away.
    ~Progress() { end(); }

    /// Begins a phase of `total` entries, 0 when nobody knows. `phase` must outlive it.
    void begin(const char* phase, uint64_t total = 0);
    /// So many entries more are expected in this phase.
    void expect(uint64_t entries) { _total += entries; }
    /// So many entries more are done.
    void advance(uint64_t entries = 1);
    /// Takes the line away; there is none until the next phase.
    void end();

private:
    void show(Clock::time_point now);

    std::ostream* _out;
    Now _now;
    const char* _phase = nullptr;
    uint64_t _total = 0;
    uint64_t _done = 0;
    uint64_t _nextLook = 0; ///< entries until the clock is looked at
    Clock::time_point _begin;
    Clock::time_point _lastShown;
};

} // namespace teskel
