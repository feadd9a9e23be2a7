// SPDX-License-Identifier: MIT
// Any bytes as a lexicon that the tool checks and takes apart.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "lexicon/repair/salvage.h"
#include "lexicon/verify/lexiconverifier.h"

using namespace teskel::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    file.setContent(reinterpret_cast<const char*>(data), size);
    const std::string path = file.path().toStdString();
    std::string error;
    teskel::LexiconVerifier verifier;
    require(verifier.run(path, error) || !error.empty());
    for (const auto& finding : verifier.findings())
        require(!finding.sentence.empty());
    teskel::Salvage salvage;
    if (!salvage.read(path, error))
        return 0;
    const auto entries = salvage.entries();
    teskel::LexiconEntry entry;
    uint64_t count = 0;
    while (entries->next(entry))
        ++count;
    require(count == salvage.entryCount() && salvage.entryError().empty());
    return 0;
}
