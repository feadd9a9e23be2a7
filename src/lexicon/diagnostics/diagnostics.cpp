// SPDX-License-Identifier: MIT
#include "lexicon/diagnostics/diagnostics.h"

#include <ostream>

namespace teskel
{

namespace
{

using Severity = DiagnosticCode::Severity;

std::string severityOf(const DiagnosticCode& code, DiagnosticForm form)
{
    if (code.severity == Severity::Note)
        return "note";
    return form.strict ? "error" : "warning";
}

bool isWanted(const DiagnosticCode& code, DiagnosticForm form)
{
    return !form.quiet || (form.strict && code.severity == Severity::Warning);
}

} // namespace

void Diagnostics::add(const DiagnosticCode& code, std::string_view where, std::string_view what)
{
    auto& [kind, times] = _times[code.name];
    kind = &code;
    if (times++ < shownOfAKind)
        _kept.push_back({&code, std::string(where), std::string(what)});
    if (code.severity == Severity::Warning)
        ++_warnings;
}

std::vector<std::string> Diagnostics::lines(DiagnosticForm form) const
{
    std::vector<std::string> result;
    for (const Kept& kept : _kept) {
        if (isWanted(*kept.code, form))
            result.push_back((kept.where.empty() ? "" : kept.where + ": ") +
                             severityOf(*kept.code, form) + '[' + kept.code->name +
                             "]: " + kept.what);
    }
    return result;
}

void Diagnostics::print(std::ostream& out, DiagnosticForm form) const
{
    for (const std::string& line : lines(form))
        out << line << '\n';
    for (const auto& [name, kind] : _times) {
        const auto& [code, times] = kind;
        if (times > shownOfAKind && isWanted(*code, form))
            out << severityOf(*code, form) << '[' << name << "]: and " << times - shownOfAKind
                << " more of this kind\n";
    }
}

} // namespace teskel
