// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

#include "tests/support/arjmember.h"

namespace teskel::test
{

QList<DamageRule> damageRules()
{
    QList<DamageRule> rules;
    for (const auto& group : {containerDamage(), recordListDamage(), indexDamage(), memberDamage(),
                              streamDamage(), textDamage(), markupDamage()}) {
        for (const DamageRule& rule : group)
            rules.append(rule);
    }
    return rules;
}

QRandomGenerator damageGenerator(const DamageRule& rule, int number)
{
    // From the name, so that a rule more does not change the files of the others.
    return QRandomGenerator(checksum(rule.name) + static_cast<quint32>(number));
}

QByteArray damagedLexicon(const DamageRule& rule, int number)
{
    QRandomGenerator generator = damageGenerator(rule, number);
    LexiconDraft draft(generator);
    return rule.make(draft, generator);
}

} // namespace teskel::test
