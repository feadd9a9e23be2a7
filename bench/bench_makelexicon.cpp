// SPDX-License-Identifier: MIT
// Writes a made-up dictionary of any size, so large that no source of that size is at hand. Its
// articles repeat themselves: two gigabytes of text become a file of some fifty megabytes.
#include "lexicon/file/palmdatabasewriter.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/packing/arjmember.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

namespace
{

constexpr unsigned recordsBeforeWords = 5;
constexpr uint64_t usualNumbers = 26ULL * 26 * 26 * 26 * 26;

/// Ascending with `number`: letters for its digits, scaled over all of them, then an ending that
/// gives the words lengths like those of real ones, 16 letters on average.
std::string headword(uint64_t number, uint64_t count)
{
    std::string word;
    uint64_t scaled = number * usualNumbers / count;
    for (int place = 0; place < 5; ++place, scaled /= 26)
        word.insert(word.begin(), static_cast<char>('a' + scaled % 26));
    const auto hash = static_cast<unsigned>((number * 2654435761U) >> 7);
    static const std::string ending = "ing of the common form";
    return word + ending.substr(0, 3 + hash % 17);
}

std::string recordText(uint64_t first, unsigned entries, uint64_t count, std::size_t bytes)
{
    static const std::string sentence =
        "<i>noun</i>\n1. a word that was made up to be looked up; 2. another sense of it\n";
    std::string text;
    for (unsigned entry = 0; entry < entries; ++entry) {
        (text += headword(first + entry, count)) += '\0';
        const std::size_t end = bytes * (entry + 1) / entries - 2;
        while (text.size() < end)
            text.append(sentence, 0, end - text.size());
        text += '\0';
    }
    return text += '\0';
}

int write(const std::string& path, unsigned records, unsigned entries, std::size_t bytes)
{
    using namespace teskel;
    const uint64_t count = uint64_t{records} * entries;
    PendingFile file(path);
    PalmDatabaseWriter writer(file, "Made up", static_cast<uint16_t>(records + recordsBeforeWords));
    std::string index;
    for (unsigned record = 0; record < records; ++record)
        (index += headword(uint64_t{record} * entries, count)) += '\0';
    ArjEncoder encoder(1);
    writer.add(index += '\0');
    writer.add(ArjMember::pack("-", encoder));
    writer.add(ArjMember::pack(std::string("Made up\0", 8), encoder));
    writer.add(ArjMember::pack("-", encoder));
    writer.add(ArjMember::pack("-", encoder));
    for (unsigned record = 0; record < records; ++record)
        writer.add(ArjMember::pack(recordText(uint64_t{record} * entries, entries, count, bytes),
                                   encoder));
    std::string error;
    if (writer.finish() && file.commit(error))
        return 0;
    std::cerr << "bench_makelexicon: " << error << '\n';
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 5) {
        std::cerr
            << "usage: bench_makelexicon FILE RECORDS ENTRIES-OF-A-RECORD BYTES-OF-A-RECORD\n";
        return 2;
    }
    const auto number = [argv](int at) {
        return static_cast<unsigned>(std::strtoul(argv[at], nullptr, 10));
    };
    return write(argv[1], number(2), number(3), number(4));
}
