// SPDX-License-Identifier: MIT
#include "fuzzing/sourceexercise.h"

#include "fuzzing/fuzzsupport.h"
#include "lexicon/build/sourcetable.h"

namespace teskel::fuzz
{

namespace
{
constexpr size_t room = size_t{1} << 20; // bytes

void checkEntry(const LexiconEntry& entry)
{
    require(!entry.headword().empty() && entry.headword().size() <= limits::headwordBytes);
    require(entry.writtenLength <= entry.articleLength);
    for (const std::string_view text : {entry.headword(), entry.article()})
        require(text.find('\0') == std::string_view::npos);
    require(entry.packed().back() == '\0');
}

void read(LexiconSource& source)
{
    EntrySorter sorter(room);
    BuildReport report;
    EntryIntake intake(sorter, report);
    std::string error;
    const bool isRead = source.read(intake, error);
    require(isRead == error.empty());
    require(intake.description(source.description(), source.textKind()).size() <=
            limits::descriptionBytes);
    const auto entries = sorter.sorted();
    LexiconEntry entry;
    uint64_t count = 0;
    while (entries->next(entry)) {
        checkEntry(entry);
        ++count;
    }
    require(count == sorter.count());
}
} // namespace

void exerciseSource(const std::string& kind, const std::string& path)
{
    for (const bool isReversed : {false, true}) {
        std::string error;
        const auto source = sourceFor(path, kind, error);
        if (!source) {
            require(!error.empty());
            return;
        }
        if (isReversed)
            source->reverse();
        read(*source);
    }
}

} // namespace teskel::fuzz
