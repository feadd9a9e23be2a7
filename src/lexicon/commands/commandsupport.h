// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/file/filestates.h"
#include "lexicon/file/lexiconreader.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace CLI
{
class Validator;
}

namespace teskel
{
class LexiconBuilder;
} // namespace teskel

namespace teskel::commands
{

/// How the program ends.
enum ExitCode {
    Done = 0,     ///< done, found, valid
    Negative = 1, ///< not found, invalid
    Usage = 2,    ///< the command line is wrong
    Failed = 3,   ///< input or output failed
};

/// Prints a sentence about what went wrong.
void complain(const std::string& sentence);

/// The exit code for a reader's status.
int exitCode(LexiconReader::Status status);

/// Opens a lexicon; says why when it cannot. Unreadable when a file changed since `read` was made,
/// from which there is nothing to conclude then.
LexiconReader::Status openLexicon(LexiconReader& reader, const std::string& file,
                                  const FileStates& read);

/// Of an option: takes whole numbers from 0 on.
CLI::Validator wholeNumber();

/// The standard error when it is a terminal that can take a line back, else null.
std::ostream* terminal();

/// Has `build` build a lexicon by `builder`, and prints what there is to tell on the way; `build`
/// says in `error` why it failed. `quiet` leaves out all but errors. Returns whether it was built.
bool runBuild(LexiconBuilder& builder, bool isStrict, bool quiet,
              const std::function<bool(std::string& error)>& build);

/// Ends the writing of files from the lexicon `file`: with `commit` when it was read to its end,
/// which `status` tells, and is as in `read`, else with `error`. Returns the exit code.
int finishFiles(LexiconReader::Status status, const std::string& file, std::string& error,
                const FileStates& read, const std::function<bool(std::string& error)>& commit);

/// Ends the printing of what stands in the lexicon `file`, which `status` tells whether it could be
/// read, or else `error` why not; `read` as in finishOutput(). Returns the exit code.
int finishReading(LexiconReader::Status status, const std::string& file, const std::string& error,
                  const FileStates& read);

/// Writes out what is still buffered of the standard output. Returns `code`, or Failed with a
/// sentence when not everything could be written, or when a file changed that was read for it.
int finishOutput(int code, const FileStates& read = {});

} // namespace teskel::commands
