// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// What the fuzz targets share.
namespace teskel::fuzz
{

/// Drops all messages: damaged input warns a lot, as it should.
void silenceMessages();

/// Ends the program when a property does not hold, so that the fuzzer keeps the input.
void require(bool holds);

/// A file in memory that a dictionary can be opened from.
class MemoryFile
{
public:
    MemoryFile();
    Q_DISABLE_COPY_MOVE(MemoryFile)
    ~MemoryFile();

    void setContent(const char* data, std::size_t size) const;
    [[nodiscard]] QString path() const;

private:
    int _descriptor;
};

/// A folder for targets that need files with names, in memory where the system has such a place.
class ScratchFolder
{
public:
    ScratchFolder();

    /// Replaces the file `name`.
    void write(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QString path(const QString& name) const { return _folder.filePath(name); }

private:
    QTemporaryDir _folder;
};

/// Opens the dictionary at `path` and uses all of it, checking what every dictionary must fulfil.
void exerciseDictionary(const QString& path);

} // namespace teskel::fuzz
