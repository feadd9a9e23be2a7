// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Files that are read and replaced whole.
namespace teskel
{

enum class Reading {
    Read,
    Missing,
    TooLarge,
    Unreadable, ///< there is something, or there may be
};

/// Reads the file at `path` into `text`, which stays as it is unless all of it was read. Nothing
/// but a plain file is read, and none of more than `most` bytes.
Reading readWhole(const QString& path, qint64 most, QByteArray& text);

/// Puts `text` in the place of the file `path`, or of the one that it links to, or leaves that as
/// it is. Makes the directory, also one that a link leads to. Whenever the system stops, the file
/// is the old or the new one.
/// @return why it could not, or nothing
QString replaceWhole(const QString& path, const QByteArray& text);

/// Gives the file a second name, `.backup` and a number behind its own, which no other file has, so
/// that the first can be replaced.
/// @return that name, or nothing when there can be none
QString keepAside(const QString& path);

/// Undoes keepAside(), unless something else is there in place of the file by now.
void takeBack(const QString& path, const QString& backup);

} // namespace teskel
