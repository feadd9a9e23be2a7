// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>

#include <bitset>

namespace teskel
{

/// Counts the runs of a text that the document shapes one by one: its scripts and directions.
class TextRuns
{
public:
    /// Whether a run begins with this character.
    bool beginsWith(char32_t character);
    /// Digits are runs of their own from now on, as they are behind letters from right to left.
    void expectRightToLeft() { _isRightToLeft = true; }
    bool hasRightToLeft() const { return _isRightToLeft; }
    /// Scripts so far, but for those that the font of any text has.
    qsizetype scripts() const { return static_cast<qsizetype>(_scripts.count()); }

private:
    std::bitset<QChar::ScriptCount> _scripts;
    QChar::Script _script = QChar::Script_Latin;
    bool _isRightToLeft = false;
    bool _isBehindDigit = false;
};

} // namespace teskel
