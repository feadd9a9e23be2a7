// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

constexpr qsizetype versionOffset = 34;
constexpr qsizetype datesOffset = 36;
constexpr qsizetype infoOffset = 52; // of application info and sort info
constexpr qsizetype creatorOffset = 64;
constexpr qsizetype typeOffset = 60;
constexpr qsizetype nextListOffset = 72;
constexpr qsizetype countOffset = 76;
constexpr int headerBytes = 78;

QByteArray withCount(const Draft& draft, int count)
{
    return patched(draft.file(), countOffset, bigEndian16(static_cast<quint32>(count)));
}

int recordCount(const Draft& draft)
{
    return Draft::firstWordRecord + static_cast<int>(draft.records.size());
}

QByteArray withSpan(const Draft& draft, Random& random, char byte)
{
    const QByteArray file = draft.file();
    const qsizetype begin = randomPlace(file, random);
    const qsizetype size = qMin<qsizetype>(random.bounded(1, 600), file.size() - begin);
    return patched(file, begin, QByteArray(size, byte));
}

QByteArray withFlippedBits(Draft& draft, Random& random)
{
    QByteArray file = draft.file();
    for (int times = random.bounded(1, 30); times > 0; --times) {
        const qsizetype at = randomPlace(file, random);
        file[at] = static_cast<char>(file.at(at) ^ 1 << random.bounded(8));
    }
    return file;
}

QByteArray withBytesLost(Draft& draft, Random& random)
{
    QByteArray file = draft.file();
    return file.remove(randomPlace(file, random), random.bounded(1, 300));
}

QByteArray withBytesTwice(Draft& draft, Random& random)
{
    QByteArray file = draft.file();
    const qsizetype at = randomPlace(file, random);
    return file.insert(at, file.mid(at, random.bounded(1, 300)));
}

const DamageRule rules[] = {
    {"empty file", [](Draft&, Random&) { return QByteArray(); }},
    {"header cut short",
     [](Draft& d, Random& r) { return d.file().left(r.bounded(1, headerBytes)); }},
    {"header alone", [](Draft& d, Random&) { return d.file().left(headerBytes); }},
    {"record list cut short",
     [](Draft& d, Random& r) {
         return d.file().left(headerBytes + r.bounded(8 * recordCount(d)));
     }},
    {"file cut short",
     [](Draft& d, Random& r) {
         const QByteArray file = d.file();
         return file.left(randomPlace(file, r));
     }},
    {"no records", [](Draft& d, Random&) { return withCount(d, 0); }},
    {"fewer than five records", [](Draft& d, Random& r) { return withCount(d, r.bounded(1, 5)); }},
    {"no word record", [](Draft& d, Random&) { return withCount(d, Draft::firstWordRecord); }},
    {"one record too few", [](Draft& d, Random&) { return withCount(d, recordCount(d) - 1); }},
    {"one record too many", [](Draft& d, Random&) { return withCount(d, recordCount(d) + 1); }},
    {"any record count", [](Draft& d, Random& r) { return withCount(d, r.bounded(65536)); }},
    {"most records", [](Draft& d, Random&) { return withCount(d, 65535); }},
    {"another creator",
     [](Draft& d, Random& r) { return patched(d.file(), creatorOffset, randomBytes(4, r)); }},
    {"another type",
     [](Draft& d, Random& r) { return patched(d.file(), typeOffset, randomBytes(4, r)); }},
    {"database name without an end",
     [](Draft& d, Random&) { return patched(d.file(), 0, QByteArray(32, 'n')); }},
    {"any version and dates",
     [](Draft& d, Random& r) {
         return patched(patched(d.file(), versionOffset, randomBytes(2, r)), datesOffset,
                        randomBytes(16, r));
     }},
    {"any application and sort info",
     [](Draft& d, Random& r) { return patched(d.file(), infoOffset, randomBytes(8, r)); }},
    {"any next record list",
     [](Draft& d, Random& r) { return patched(d.file(), nextListOffset, randomBytes(4, r)); }},
    {"any header",
     [](Draft& d, Random& r) {
         return patched(patched(d.file(), 0, randomBytes(headerBytes, r)), creatorOffset, "TSKL");
     }},
    {"bytes behind the last record",
     [](Draft& d, Random& r) { return d.file() + randomBytes(r.bounded(1, 3000), r); }},
    {"zeros", [](Draft& d, Random& r) { return withSpan(d, r, '\0'); }},
    {"ones", [](Draft& d, Random& r) { return withSpan(d, r, '\xFF'); }},
    {"bits flipped", withFlippedBits},
    {"bytes lost", withBytesLost},
    {"bytes twice", withBytesTwice},
    {"noise", [](Draft&, Random& r) { return randomBytes(r.bounded(1, 4000), r); }},
};
} // namespace

std::span<const DamageRule> containerDamage()
{
    return rules;
}

} // namespace teskel::test
