// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

#include <algorithm>

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

const QByteArray nul(1, '\0');

QByteArray withKeys(const Draft& draft, const QByteArrayList& keys)
{
    return draft.fileWithIndex(keys.join(nul) + nul + nul);
}

QByteArray withReversedKeys(Draft& draft, Random&)
{
    QByteArrayList keys = draft.keys();
    std::reverse(keys.begin(), keys.end());
    return withKeys(draft, keys);
}

QByteArray withSwappedKeys(Draft& draft, Random& random)
{
    QByteArrayList keys = draft.keys();
    keys.swapItemsAt(random.bounded(keys.size()), random.bounded(keys.size()));
    return withKeys(draft, keys);
}

QByteArray withKey(const Draft& draft, Random& random, const QByteArray& key)
{
    QByteArrayList keys = draft.keys();
    keys[random.bounded(keys.size())] = key;
    return withKeys(draft, keys);
}

const DamageRule rules[] = {
    {"index empty", [](Draft& d, Random&) { return d.fileWithIndex(QByteArray()); }},
    {"index of NULs",
     [](Draft& d, Random& r) { return d.fileWithIndex(QByteArray(r.bounded(1, 99), '\0')); }},
    {"index without an end",
     [](Draft& d, Random& r) {
         return d.fileWithIndex(d.keys().join(nul) + QByteArray(r.bounded(9), 'x'));
     }},
    {"index cut short",
     [](Draft& d, Random& r) {
         const QByteArray index = d.keys().join(nul);
         return d.fileWithIndex(index.left(randomPlace(index, r)));
     }},
    {"index of one short key",
     [](Draft& d, Random& r) { return d.fileWithIndex(QByteArray(r.bounded(1, 8), 'a')); }},
    {"index of topics", [](Draft& d, Random&) { return d.fileWithIndex("#topic" + nul + nul); }},
    {"index of noise",
     [](Draft& d, Random& r) { return d.fileWithIndex(randomBytes(r.bounded(1, 2000), r)); }},
    {"keys descending", withReversedKeys},
    {"keys swapped", withSwappedKeys},
    {"keys all alike",
     [](Draft& d, Random& r) {
         return withKeys(d, QByteArrayList(d.records.size(), d.keys().at(r.bounded(3))));
     }},
    {"key missing",
     [](Draft& d, Random& r) {
         QByteArrayList keys = d.keys();
         keys.removeAt(r.bounded(keys.size()));
         return withKeys(d, keys);
     }},
    {"keys too many",
     [](Draft& d, Random& r) {
         return withKeys(d, d.keys() + QByteArrayList(r.bounded(1, 500), "x"));
     }},
    {"key empty", [](Draft& d, Random& r) { return withKey(d, r, QByteArray()); }},
    {"key very long",
     [](Draft& d, Random& r) { return withKey(d, r, QByteArray(r.bounded(512, 70000), 'h')); }},
    {"key of high bytes", [](Draft& d, Random& r) { return withKey(d, r, QByteArray(9, '\xFF')); }},
    {"index of a megabyte",
     [](Draft& d, Random& r) {
         return withKeys(d, QByteArrayList(1 << 18, QByteArray(r.bounded(1, 4), 'k')));
     }},
};
} // namespace

std::span<const DamageRule> indexDamage()
{
    return rules;
}

} // namespace teskel::test
