// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

#include <algorithm>

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

constexpr int largestText = 32767;
const QByteArray nul(1, '\0');

QByteArray withHeadword(Draft& draft, Random& random, const QByteArray& headword)
{
    QList<Entry>& entries = draft.records[random.bounded(draft.records.size())];
    entries[random.bounded(entries.size())].first = headword;
    return draft.file();
}

QByteArray withDescription(Draft& draft, const QByteArray& description)
{
    draft.description = description;
    return draft.file();
}

QByteArray withoutTerminators(Draft& draft, Random& random)
{
    QByteArrayList texts = draft.texts();
    QByteArray& text = texts[random.bounded(texts.size())];
    text.chop(random.bounded(1, 6));
    return draft.fileOfTexts(texts);
}

QByteArray inDisorder(Draft& draft, Random& random)
{
    for (QList<Entry>& entries : draft.records)
        std::shuffle(entries.begin(), entries.end(), random);
    return draft.file();
}

QByteArray withRecordsInDisorder(Draft& draft, Random& random)
{
    QByteArrayList members = draft.members();
    std::shuffle(members.begin(), members.end(), random);
    return draft.fileOfMembers(members);
}

QByteArray withDamagedDescription(Draft& draft, Random& random)
{
    constexpr int descriptionRecord = 2;
    QByteArray file = draft.file();
    const auto at = static_cast<qsizetype>(file.indexOf("\x60\xEA"));
    return patched(file, at + random.bounded(1, 40), randomBytes(descriptionRecord, random));
}

QByteArray allLong(Draft& draft, Random& random)
{
    for (QList<Entry>& entries : draft.records) {
        for (Entry& entry : entries)
            entry.second = QByteArray("long words ").repeated(random.bounded(1, 180));
    }
    return draft.file();
}

const DamageRule rules[] = {
    {"record without its terminators", withoutTerminators},
    {"record empty", [](Draft& d, Random& r) { return d.fileWithText(QByteArray(), r); }},
    {"record of NULs",
     [](Draft& d, Random& r) {
         return d.fileWithText(QByteArray(r.bounded(1, largestText), '\0'), r);
     }},
    {"record without a NUL",
     [](Draft& d, Random& r) {
         return d.fileWithText(QByteArray(r.bounded(1, largestText), 'x'), r);
     }},
    {"record of noise",
     [](Draft& d, Random& r) { return d.fileWithText(randomBytes(r.bounded(1, 9000), r), r); }},
    {"record of one-letter words",
     [](Draft& d, Random& r) {
         return d.fileWithText(("a" + nul + nul).repeated(r.bounded(1, largestText / 3)), r);
     }},
    {"record of one word again and again",
     [](Draft& d, Random& r) {
         return d.fileWithText(("Haus" + nul + "house" + nul).repeated(r.bounded(1, 2900)), r);
     }},
    {"records all of one word",
     [](Draft& d, Random&) {
         return d.fileOfTexts(QByteArrayList(d.records.size(), "Haus" + nul + "x" + nul + nul));
     }},
    {"all records empty",
     [](Draft& d, Random&) { return d.fileOfTexts(QByteArrayList(d.records.size(), nul)); }},
    {"entries in disorder", inDisorder},
    {"records in disorder", withRecordsInDisorder},
    {"headword empty", [](Draft& d, Random& r) { return withHeadword(d, r, QByteArray()); }},
    {"headword of 512 bytes and more",
     [](Draft& d, Random& r) { return withHeadword(d, r, QByteArray(r.bounded(511, 1100), 'h')); }},
    {"headword very long",
     [](Draft& d, Random& r) {
         return withHeadword(d, r, QByteArray(r.bounded(5000, 30000), 'h'));
     }},
    {"headword with controls",
     [](Draft& d, Random& r) { return withHeadword(d, r, "a\n\t\r\x01\x1B[0m\x7F\x85"); }},
    {"headword with markup",
     [](Draft& d, Random& r) {
         return withHeadword(d, r, "<b><table><tr><td>Haus</b><img src=x>");
     }},
    {"headword of high bytes",
     [](Draft& d, Random& r) { return withHeadword(d, r, QByteArray(r.bounded(1, 300), '\xFF')); }},
    {"articles all long", allLong},
    {"article as long as a record",
     [](Draft& d, Random& r) {
         return d.fileWithText("Haus" + nul + QByteArray(largestText - 7, ' ') + nul + nul, r);
     }},
    {"description damaged", withDamagedDescription},
    {"description empty", [](Draft& d, Random&) { return withDescription(d, QByteArray()); }},
    {"description very long",
     [](Draft& d, Random& r) {
         return withDescription(d, QByteArray("long ").repeated(r.bounded(100, 6000)));
     }},
    {"description of markup",
     [](Draft& d, Random&) {
         return withDescription(d, "<table><tr><td><font size=7><img src='/dev/zero'>&bogus;");
     }},
    {"description of noise",
     [](Draft& d, Random& r) { return withDescription(d, randomBytes(r.bounded(1, 600), r)); }},
};
} // namespace

std::span<const DamageRule> textDamage()
{
    return rules;
}

} // namespace teskel::test
