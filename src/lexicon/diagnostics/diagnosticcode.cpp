// SPDX-License-Identifier: MIT
#include "lexicon/diagnostics/diagnosticcode.h"

namespace teskel
{

namespace diagnostic
{

using enum DiagnosticCode::Severity;

constinit const DiagnosticCode emptyHeadword{
    "empty-headword", Warning, "An entry has no headword; its article goes under \"?\"."};
constinit const DiagnosticCode longHeadword{
    "long-headword", Warning,
    "A headword has more than 511 bytes; it is shortened and stands whole in its article."};
constinit const DiagnosticCode longDescription{
    "long-description", Warning, "The description has more than 511 bytes; its end is left out."};
constinit const DiagnosticCode longArticle{
    "long-article", Warning,
    "The articles of a headword fill more than a record; they go on under the headword with "
    "\" (2)\" and so on."};
constinit const DiagnosticCode recordSize{
    "record-size", Warning,
    "Records of the size that was asked for would be too many; larger ones are made."};
constinit const DiagnosticCode namedEntity{
    "named-entity", Note,
    "A character that Latin-1 lacks is written as a named entity, which the reader shows."};
constinit const DiagnosticCode otherLetters{
    "other-letters", Warning, "A character that Latin-1 lacks is written in other letters."};
constinit const DiagnosticCode unknownCharacter{
    "unknown-character", Warning, "A character that Latin-1 lacks is written as \"?\"."};
constinit const DiagnosticCode controlCharacter{
    "control-character", Warning, "A character that is not to be shown is written as a blank."};
constinit const DiagnosticCode windowsCharacter{
    "windows-character", Note,
    "A control character is read as what Windows-1252 has in its place, such as a dash."};
constinit const DiagnosticCode invalidUtf8{
    "invalid-utf8", Warning, "A byte that is no UTF-8 is written as the sign for what is unknown."};

constinit const DiagnosticCode unknownProperty{
    "unknown-property", Warning,
    "A line of TSV that begins with \"##\" tells something that has no place in a lexicon, or "
    "tells it again; it is left out."};
constinit const DiagnosticCode unknownField{
    "unknown-field", Warning,
    "A field of a StarDict article is of a type that cannot be shown; it is left out."};
constinit const DiagnosticCode fieldEncoding{
    "field-encoding", Warning, "A field of a StarDict article is no UTF-8; it is read as Latin-1."};
constinit const DiagnosticCode fieldLength{
    "field-length", Warning,
    "A field of a StarDict article is longer than the article; what is there is taken."};
constinit const DiagnosticCode wordCount{
    "word-count", Warning,
    "A StarDict .ifo counts other words than the index has; all of them are taken."};
constinit const DiagnosticCode entryWithoutWord{
    "entry-without-word", Warning, "An entry of a TEI document has no word; it is left out."};
constinit const DiagnosticCode externalEntity{
    "external-entity", Warning,
    "A TEI document refers to text in another file, which is not read; it is left out."};

} // namespace diagnostic

std::span<const DiagnosticCode* const> allDiagnosticCodes()
{
    static constexpr const DiagnosticCode* codes[] = {
        &diagnostic::emptyHeadword,    &diagnostic::longHeadword,     &diagnostic::longDescription,
        &diagnostic::longArticle,      &diagnostic::recordSize,       &diagnostic::namedEntity,
        &diagnostic::otherLetters,     &diagnostic::unknownCharacter, &diagnostic::controlCharacter,
        &diagnostic::windowsCharacter, &diagnostic::invalidUtf8,      &diagnostic::unknownProperty,
        &diagnostic::unknownField,     &diagnostic::fieldEncoding,    &diagnostic::fieldLength,
        &diagnostic::wordCount,        &diagnostic::entryWithoutWord, &diagnostic::externalEntity,

    };
    return codes;
}

} // namespace teskel
