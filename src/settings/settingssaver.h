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
/// without end. Nothing is written while nothing changes.
class SettingsSaver : public QObject
{
    Q_OBJECT

public:
    /// After the last change, key or tap.
    static constexpr std::chrono::milliseconds usualRest{400};
    /// After the first change that is not saved.
    static constexpr std::chrono::milliseconds usualLongest{1500};

    /// @param preferences not owned; must outlive the object, which becomes its change handler
    explicit SettingsSaver(PreferencesData& preferences, QObject* parent = nullptr);
    ~SettingsSaver() override;
    Q_DISABLE_COPY_MOVE(SettingsSaver)

    void setTimes(std::chrono::milliseconds rest, std::chrono::milliseconds longest);

    /// Whether there is a change that is not saved.
    bool isPending() const { return _timer.isActive(); }

    /// Sees what the person does in any window, while there is something to save.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeChange();
    void waitForRest();
    void save();

    PreferencesData& _preferences;
    QTimer _timer;
    QElapsedTimer _unsaved;
    std::chrono::milliseconds _rest = usualRest;
    std::chrono::milliseconds _longest = usualLongest;
};

} // namespace teskel
