// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace teskel
{

/// Writes text of any script in Latin letters, by rules in the language of ICU's transliterators.
///
/// Where ICU refuses the rules, which it does when it finds no data, that is warned about once, and
/// texts are given by their code points.
class Romanizer
{
public:
    /// @param id a compound transliterator id, whose result is Latin-1
    explicit Romanizer(const char* id);
    ~Romanizer();
    Romanizer(const Romanizer&) = delete;
    Romanizer& operator=(const Romanizer&) = delete;

    /// The rules that lexicons are made and searched with; loaded by the first call.
    static const Romanizer& ofLexicons();

    /// `text` in Latin-1; empty where the rules have nothing for any of its characters.
    QString romanized(QStringView text) const;
    /// The code points of `text` as hexadecimalLetters(), one after the other.
    static QString codePoints(QStringView text);

private:
    struct Rules;
    std::unique_ptr<const Rules> _rules;
};

} // namespace teskel
