// SPDX-License-Identifier: MIT
#include "lexicon/diagnostics/progress.h"

#include <ostream>

namespace teskel
{

namespace
{

using namespace std::chrono_literals;

constexpr auto interval = 100ms;
/// Before that, the time that is left is a guess.
constexpr auto firstGuess = 500ms;
/// The clock is looked at once in so many entries.
constexpr uint64_t entriesBetweenLooks = 64;
/// Back to the beginning of the line, and clear it.
constexpr const char* clearLine = "\r\x1B[K";

} // namespace

void Progress::begin(const char* phase, uint64_t total)
{
    if (!_out)
        return;
    _phase = phase;
    _total = total;
    _done = 0;
    _nextLook = entriesBetweenLooks;
    _begin = _now();
    show(_begin);
}

void Progress::advance(uint64_t entries)
{
    _done += entries;
    if (!_phase || _done < _nextLook)
        return;
    _nextLook = _done + entriesBetweenLooks;
    if (const Clock::time_point now = _now(); now - _lastShown >= interval)
        show(now);
}

void Progress::show(Clock::time_point now)
{
    *_out << clearLine << _phase;
    if (_done > 0)
        *_out << ": " << _done;
    if (_done > 0 && _total >= _done)
        *_out << " of " << _total;
    if (_done > 0)
        *_out << " entries";
    if (_done > 0 && _total >= _done && now - _begin >= firstGuess) {
        const double seconds = std::chrono::duration<double>(now - _begin).count();
        const auto left = static_cast<uint64_t>(seconds * static_cast<double>(_total - _done) /
                                                static_cast<double>(_done));
        *_out << ", " << left + 1 << " s left";
    }
    *_out << std::flush;
    _lastShown = now;
}

void Progress::end()
{
    if (_phase)
        *_out << clearLine << std::flush;
    _phase = nullptr;
}

} // namespace teskel
