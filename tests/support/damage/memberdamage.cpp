// SPDX-License-Identifier: MIT
#include "tests/support/arjmember.h"
#include "tests/support/damage/damagerule.h"

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

// Places in a member, whose header stands in front of it.
constexpr qsizetype idPlace = 0;
constexpr qsizetype basicSizePlace = 2;
constexpr qsizetype firstSizePlace = 4;
constexpr qsizetype methodPlace = 9;
constexpr qsizetype packedSizePlace = 16;
constexpr qsizetype sizePlace = 20;
constexpr qsizetype crcPlace = 24;
constexpr qsizetype namePlace = 34;
constexpr int headerBytes = 42;

QByteArray withField(const Draft& draft, Random& random, qsizetype place, const QByteArray& bytes)
{
    const QByteArrayList members = draft.members();
    const QByteArray& member = members.at(random.bounded(members.size()));
    return draft.fileWithMember(patched(member, place, bytes), random);
}

QByteArray withCutMember(Draft& draft, Random& random)
{
    QByteArrayList members = draft.members();
    QByteArray& member = members[random.bounded(members.size())];
    member.truncate(randomPlace(member, random));
    return draft.fileOfMembers(members);
}

QByteArray withHeaderParts(const Draft& draft, Random& random, const QByteArray& extended,
                           const QByteArray& name, bool isEnded)
{
    const QByteArray text = draft.texts().first();
    ArjMember member;
    member.method = 4;
    member.fileName = name;
    member.hasTerminators = isEnded;
    member.extendedHeaders = extended;
    member.uncompressedSize = static_cast<quint32>(text.size());
    member.crc = checksum(text);
    const QByteArray packed = packLiterals(text);
    member.compressedSize = static_cast<quint32>(packed.size());
    return draft.fileWithMember(member.header() + packed, random);
}

QByteArray small(Random& random)
{
    return littleEndian32(static_cast<quint32>(random.bounded(70)));
}

const DamageRule rules[] = {
    {"member without its id",
     [](Draft& d, Random& r) { return withField(d, r, idPlace, randomBytes(2, r)); }},
    {"end mark of an archive",
     [](Draft& d, Random& r) { return withField(d, r, basicSizePlace, littleEndian16(0)); }},
    {"any basic header size",
     [](Draft& d, Random& r) { return withField(d, r, basicSizePlace, randomBytes(2, r)); }},
    {"basic header a little longer or shorter",
     [](Draft& d, Random& r) {
         return withField(d, r, basicSizePlace,
                          littleEndian16(static_cast<quint32>(r.bounded(20, 60))));
     }},
    {"any first header size",
     [](Draft& d, Random& r) { return withField(d, r, firstSizePlace, randomBytes(1, r)); }},
    {"stored, not packed",
     [](Draft& d, Random& r) { return withField(d, r, methodPlace, QByteArray(1, '\0')); }},
    {"another method",
     [](Draft& d, Random& r) {
         return withField(d, r, methodPlace, QByteArray(1, static_cast<char>(1 + r.bounded(4))));
     }},
    {"unknown method",
     [](Draft& d, Random& r) {
         return withField(d, r, methodPlace, QByteArray(1, static_cast<char>(r.bounded(5, 128))));
     }},
    {"packed size small",
     [](Draft& d, Random& r) { return withField(d, r, packedSizePlace, small(r)); }},
    {"any packed size",
     [](Draft& d, Random& r) { return withField(d, r, packedSizePlace, randomBytes(4, r)); }},
    {"largest packed size",
     [](Draft& d, Random& r) {
         return withField(d, r, packedSizePlace, littleEndian32(0xFFFFFFFF));
     }},
    {"size small", [](Draft& d, Random& r) { return withField(d, r, sizePlace, small(r)); }},
    {"size a little above the limit",
     [](Draft& d, Random& r) { return withField(d, r, sizePlace, littleEndian32(32768)); }},
    {"largest size within the limit",
     [](Draft& d, Random& r) { return withField(d, r, sizePlace, littleEndian32(32767)); }},
    {"any size", [](Draft& d, Random& r) { return withField(d, r, sizePlace, randomBytes(4, r)); }},
    {"another checksum",
     [](Draft& d, Random& r) { return withField(d, r, crcPlace, randomBytes(4, r)); }},
    {"any fields",
     [](Draft& d, Random& r) {
         return withField(d, r, firstSizePlace, randomBytes(headerBytes - firstSizePlace, r));
     }},
    {"name of noise",
     [](Draft& d, Random& r) { return withField(d, r, namePlace, randomBytes(8, r)); }},
    {"name very long",
     [](Draft& d, Random& r) {
         return withHeaderParts(d, r, "", QByteArray(r.bounded(511, 60000), 'n'), true);
     }},
    {"name without an end",
     [](Draft& d, Random& r) { return withHeaderParts(d, r, "", "name", false); }},
    {"extended headers",
     [](Draft& d, Random& r) {
         return withHeaderParts(d, r, extendedHeader("more").repeated(r.bounded(1, 300)), "r",
                                true);
     }},
    {"extended header beyond the record",
     [](Draft& d, Random& r) { return withHeaderParts(d, r, littleEndian16(60000), "r", true); }},
    {"member cut short", withCutMember},
    {"member of noise",
     [](Draft& d, Random& r) { return d.fileWithMember(randomBytes(r.bounded(1, 900), r), r); }},
    {"member of another lexicon",
     [](Draft& d, Random& r) { return d.fileWithText(LexiconDraft(r).texts().last(), r); }},
};
} // namespace

std::span<const DamageRule> memberDamage()
{
    return rules;
}

} // namespace teskel::test
