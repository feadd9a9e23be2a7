// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace teskel
{

/// A kind of diagnostic. Its name is part of the program's interface.
struct DiagnosticCode {
    enum class Severity {
        Note,    ///< what is shown is what the source says
        Warning, ///< something is shown otherwise than the source says it
    };

    const char* name;
    Severity severity;
    const char* meaning; ///< one sentence: what it is, and what is done
};

/// The diagnostics of a build.
namespace diagnostic
{
extern const DiagnosticCode emptyHeadword;
extern const DiagnosticCode longHeadword;
extern const DiagnosticCode longDescription;
extern const DiagnosticCode longArticle;
extern const DiagnosticCode recordSize;
extern const DiagnosticCode namedEntity;
extern const DiagnosticCode otherLetters;
extern const DiagnosticCode unknownCharacter;
extern const DiagnosticCode controlCharacter;
extern const DiagnosticCode windowsCharacter;
extern const DiagnosticCode invalidUtf8;
extern const DiagnosticCode unknownProperty;
extern const DiagnosticCode unknownField;
extern const DiagnosticCode fieldEncoding;
extern const DiagnosticCode fieldLength;
extern const DiagnosticCode wordCount;
extern const DiagnosticCode entryWithoutWord;
extern const DiagnosticCode externalEntity;
} // namespace diagnostic

/// All of them, in the order of the manual.
std::span<const DiagnosticCode* const> allDiagnosticCodes();

} // namespace teskel
