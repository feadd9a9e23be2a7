// SPDX-License-Identifier: MIT
#include "widgets/article/textruns.h"

namespace teskel
{

namespace
{

bool isOfEveryFont(QChar::Script script)
{
    return script == QChar::Script_Latin || script == QChar::Script_Greek ||
           script == QChar::Script_Cyrillic;
}

bool turnsDirection(QChar::Direction direction)
{
    switch (direction) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

} // namespace

bool TextRuns::beginsWith(char32_t character)
{
    if (character < 0x80) {
        const bool isLetter = QChar(static_cast<char16_t>(character)).isLetter();
        const bool isDigit = character >= U'0' && character <= U'9';
        const bool begins = isLetter ? _script != QChar::Script_Latin || _isBehindDigit
                                     : isDigit && _isRightToLeft && !_isBehindDigit;
        if (isLetter) {
            _script = QChar::Script_Latin;
            _isBehindDigit = false;
        } else if (begins) {
            _isBehindDigit = true;
        }
        return begins;
    }
    const QChar::Direction direction = QChar::direction(character);
    if (turnsDirection(direction)) {
        _isRightToLeft = true;
        return true;
    }
    if (direction == QChar::DirR || direction == QChar::DirAL)
        _isRightToLeft = true;
    const QChar::Script script = QChar::script(character);
    if (script == QChar::Script_Common || script == QChar::Script_Inherited)
        return _isRightToLeft &&
               (direction == QChar::DirAN || direction == QChar::DirR || direction == QChar::DirL);
    if (!isOfEveryFont(script))
        _scripts.set(static_cast<std::size_t>(script));
    const bool begins = script != _script || _isBehindDigit;
    _script = script;
    _isBehindDigit = false;
    return begins;
}

} // namespace teskel
