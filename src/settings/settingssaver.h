// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>

class PreferencesData;

namespace teskel
{

/// Saves the settings record soon after it changed, so that a crash loses next to nothing.
///
/// It waits until the person rests, so that nobody waits for a disk between two keys, but not
/// without end. Nothing is written while nothing changes. What could not be saved is tried again:
/// after the next change, and until there is one after pauses that grow by a quarter each.
class SettingsSaver : public QObject
{
    Q_OBJECT

public:
    /// After the last change, key or tap. Longer than slow typing takes from key to key.
    static constexpr std::chrono::milliseconds usualRest{900};
    /// After the first change that is not saved.
    static constexpr std::chrono::milliseconds usualLongest{1700};
    /// After the first save that failed, and the longest that follow it.
    static constexpr std::chrono::milliseconds usualPause{2000};
    static constexpr std::chrono::milliseconds usualLongestPause{30'000};

    /// @param preferences not owned; must outlive the object, which becomes its change handler
    explicit SettingsSaver(PreferencesData& preferences, QObject* parent = nullptr);
    ~SettingsSaver() override;
    Q_DISABLE_COPY_MOVE(SettingsSaver)

    void setTimes(std::chrono::milliseconds rest, std::chrono::milliseconds longest);
    void setPauses(std::chrono::milliseconds first, std::chrono::milliseconds longest);

    /// Whether there is a change that is not saved.
    bool isPending() const { return _timer.isActive(); }
    /// Before the next attempt when the last save failed; otherwise none.
    std::chrono::milliseconds pause() const { return _pause; }

    /// Sees what the person does in any window, while there is something to save.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeChange();
    void waitForRest();
    void save();
    void tryAgainLater();

    PreferencesData& _preferences;
    QTimer _timer;
    QElapsedTimer _unsaved;
    std::chrono::milliseconds _rest = usualRest;
    std::chrono::milliseconds _longest = usualLongest;
    std::chrono::milliseconds _firstPause = usualPause;
    std::chrono::milliseconds _longestPause = usualLongestPause;
    std::chrono::milliseconds _pause{0}; ///< after the last save; none when it did not fail
    bool _isResting = false;             ///< the timer waits for a rest, not for a pause's end
};

} // namespace teskel
