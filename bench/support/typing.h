// SPDX-License-Identifier: MIT
#pragma once

#include "bench/support/barewindow.h"

#include <QChar>
#include <QList>

class QMainWindow;

namespace teskel::bench
{

/// One letter that is typed; one that starts a word replaces the word before.
struct Key {
    QChar letter;
    bool startsWord;
};

/// The letters of `words` words from all over the dictionary at `path`, the same in every run.
[[nodiscard]] QList<Key> keysOf(const QString& path, int words);

/// Shows a window at 640x480 and waits until it rests.
void showForTyping(QMainWindow& window);

/// Types `key` as a keyboard does, through the window to whatever has the focus in it, and waits
/// until the window is painted.
void press(QMainWindow& window, QLineEdit* entry, const Key& key);

/// What the reader shows after each of `keys`, for a bare window to show the same.
[[nodiscard]] QList<View> viewsOf(const QString& path, const QList<Key>& keys);

} // namespace teskel::bench
