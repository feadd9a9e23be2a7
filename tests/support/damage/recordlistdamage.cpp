// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

#include <QtEndian>

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

constexpr int listOffset = 78;
constexpr int entryBytes = 8;

int recordCount(const Draft& draft)
{
    return Draft::firstWordRecord + static_cast<int>(draft.records.size());
}

quint32 offsetOf(const QByteArray& file, qsizetype record)
{
    return qFromBigEndian<quint32>(file.constData() + listOffset + entryBytes * record);
}

QByteArray withOffset(const QByteArray& file, qsizetype record, quint32 offset)
{
    return patched(file, listOffset + entryBytes * record, bigEndian32(offset));
}

QByteArray withAnyAt(const Draft& draft, Random& random, quint32 offset)
{
    return withOffset(draft.file(), random.bounded(recordCount(draft)), offset);
}

QByteArray withSwapped(const Draft& draft, int first, int second)
{
    const QByteArray file = draft.file();
    return withOffset(withOffset(file, first, offsetOf(file, second)), second,
                      offsetOf(file, first));
}

QByteArray withMoved(const Draft& draft, Random& random, int bytes)
{
    const QByteArray file = draft.file();
    const int record = random.bounded(recordCount(draft));
    return withOffset(file, record, offsetOf(file, record) + static_cast<quint32>(bytes));
}

QByteArray withAllAt(const Draft& draft, quint32 offset)
{
    QByteArray file = draft.file();
    for (int record = 0; record < recordCount(draft); ++record)
        file = withOffset(file, record, offset);
    return file;
}

const DamageRule rules[] = {
    {"any offset", [](Draft& d, Random& r) { return withAnyAt(d, r, r.generate()); }},
    {"offset in the header",
     [](Draft& d, Random& r) {
         return withAnyAt(d, r, static_cast<quint32>(r.bounded(listOffset)));
     }},
    {"offset at the end",
     [](Draft& d, Random& r) { return withAnyAt(d, r, static_cast<quint32>(d.file().size())); }},
    {"offset beyond the end",
     [](Draft& d, Random& r) {
         return withAnyAt(d, r, static_cast<quint32>(d.file().size() + r.bounded(1, 9000)));
     }},
    {"largest offset", [](Draft& d, Random& r) { return withAnyAt(d, r, 0xFFFFFFFF); }},
    {"offset past 31 bits", [](Draft& d, Random& r) { return withAnyAt(d, r, 0x80000000); }},
    {"offsets swapped",
     [](Draft& d, Random& r) {
         return withSwapped(d, r.bounded(recordCount(d)), r.bounded(recordCount(d)));
     }},
    {"index and a word record swapped",
     [](Draft& d, Random& r) {
         return withSwapped(d, 0, r.bounded(Draft::firstWordRecord, recordCount(d)));
     }},
    {"record begins later", [](Draft& d, Random& r) { return withMoved(d, r, r.bounded(1, 9)); }},
    {"record begins earlier",
     [](Draft& d, Random& r) { return withMoved(d, r, -r.bounded(1, 9)); }},
    {"all offsets alike",
     [](Draft& d, Random& r) {
         const QByteArray file = d.file();
         return withAllAt(d, offsetOf(file, r.bounded(recordCount(d))));
     }},
    {"all offsets zero", [](Draft& d, Random&) { return withAllAt(d, 0); }},
    {"any record list",
     [](Draft& d, Random& r) {
         return patched(d.file(), listOffset, randomBytes(entryBytes * recordCount(d), r));
     }},
};
} // namespace

std::span<const DamageRule> recordListDamage()
{
    return rules;
}

} // namespace teskel::test
