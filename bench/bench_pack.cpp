// SPDX-License-Identifier: MIT
// Packs the word records of a lexicon anew, as `teskel-lexicon build` does: nothing is read or
// written while the CPU time is taken.
#include "bench/support/members.h"
#include "dictionary/unpacking/decode.h"
#include "lexicon/packing/arjmember.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

namespace
{

std::vector<std::string> unpackedRecords(const QString& lexicon)
{
    std::vector<std::string> records;
    for (const QByteArray& member : teskel::bench::packedRecords(lexicon)) {
        teskel::MemberBlock block;
        if (teskel::decodeMember(member.constData(), static_cast<std::size_t>(member.size()),
                                 block) != teskel::MemberStatus::Ok)
            qFatal("%s: a record cannot be unpacked", qUtf8Printable(lexicon));
        records.emplace_back(block.data.get(), block.size);
    }
    return records;
}

/// Bytes that packing gives, without the members' headers.
std::size_t pack(const std::vector<std::string>& records, int method)
{
    teskel::ArjEncoder encoder(method);
    const std::size_t headerBytes = teskel::ArjMember::pack({}, encoder).size();
    std::size_t bytes = 0;
    for (const std::string& record : records)
        bytes += teskel::ArjMember::pack(record, encoder).size() - headerBytes;
    return bytes;
}

} // namespace

int main(int argc, char* argv[])
{
    const int method = argc == 4 ? QByteArray(argv[2]).toInt() : 0;
    const int repeats = argc == 4 ? QByteArray(argv[3]).toInt() : 0;
    if (method < 1 || method > 4 || repeats < 1) {
        QTextStream(stderr) << "usage: bench_pack LEXICON METHOD REPEATS\n";
        return 2;
    }
    const std::vector<std::string> records = unpackedRecords(QFile::decodeName(argv[1]));
    std::size_t text = 0;
    for (const std::string& record : records)
        text += record.size();
    std::size_t packed = 0;
    double least = std::numeric_limits<double>::infinity();
    for (int repeat = 0; repeat < repeats; ++repeat) {
        const std::clock_t begin = std::clock();
        packed = pack(records, method);
        least = std::min(least, static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    QTextStream(stdout) << text << " bytes of text, " << packed << " packed, " << least
                        << " seconds of CPU\n";
    return 0;
}
