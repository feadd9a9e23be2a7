// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/childprocess.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

namespace teskel::test
{

/// Runs teskel-lexicon as a person does, in a temporary directory.
class LexiconProgram
{
public:
    /// Builds the lexicon that most tests look into, as small.PDB.
    [[nodiscard]] bool buildSmallLexicon() const;
    [[nodiscard]] ProgramResult run(const QStringList& arguments,
                                    const QByteArray& input = {}) const;
    /// The same as a process that has limits or an output of its own.
    [[nodiscard]] ProgramResult run(QProcess& process, const QStringList& arguments,
                                    const QByteArray& input = {}) const;

    [[nodiscard]] QString directory() const { return _directory.path(); }
    /// The path of a file in the directory; `name` is UTF-8.
    [[nodiscard]] QString path(const char* name) const;
    /// The content of such a file, or "(missing)".
    [[nodiscard]] QByteArray bytesOf(const char* name) const;

private:
    QTemporaryDir _directory;
};

/// A command line from UTF-8 words.
[[nodiscard]] QStringList words(std::initializer_list<const char*> texts);

} // namespace teskel::test
