// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/damage/lexicondraft.h"

#include <QByteArray>
#include <QRandomGenerator>

#include <span>

namespace teskel::test
{

/// A kind of damage: makes the bytes of a file that is damaged so. Another state of the generator
/// gives another file of the kind, the same state the same file.
struct DamageRule {
    const char* name;
    QByteArray (*make)(LexiconDraft& draft, QRandomGenerator& generator);
};

/// All kinds, one group after the other.
[[nodiscard]] QList<DamageRule> damageRules();

// The groups: which part of a file they damage.
[[nodiscard]] std::span<const DamageRule> containerDamage();
[[nodiscard]] std::span<const DamageRule> recordListDamage();
[[nodiscard]] std::span<const DamageRule> indexDamage();
[[nodiscard]] std::span<const DamageRule> memberDamage();
[[nodiscard]] std::span<const DamageRule> streamDamage();
[[nodiscard]] std::span<const DamageRule> textDamage();
[[nodiscard]] std::span<const DamageRule> markupDamage();

/// The generator that the file number `number` of a kind is made with, first its draft.
[[nodiscard]] QRandomGenerator damageGenerator(const DamageRule& rule, int number);
/// A damaged lexicon: the file number `number` of the kind `rule`.
[[nodiscard]] QByteArray damagedLexicon(const DamageRule& rule, int number);

} // namespace teskel::test
