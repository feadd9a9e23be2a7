// SPDX-License-Identifier: MIT
#include "widgets/article/markuptokenizer.h"

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{
/// The characters of a reference between "&" and ";".
constexpr qsizetype longestReference = 8;
/// The one character beyond ASCII that becomes a letter of ASCII in lower case.
constexpr uint kelvinSign = 0x212A;

bool isMarkup(uint code)
{
    // A code that does not exist may become anything.
    return code < 0x80 || code == kelvinSign || code > QChar::LastValidCodePoint;
}

/// Calls `isSought` with what stands between each "&" and the ";" that may end a reference there.
template<typename Predicate>
bool anyReference(QStringView word, Predicate isSought)
{
    for (qsizetype begin = word.indexOf(u'&'); begin >= 0; begin = word.indexOf(u'&', begin + 1)) {
        const qsizetype end = word.indexOf(u';', begin);
        if (end < 0)
            return false;
        if (end - begin - 1 <= longestReference &&
            isSought(word.sliced(begin + 1, end - begin - 1)))
            return true;
    }
    return false;
}
} // namespace

bool MarkupTokenizer::mayHoldReference(QStringView word)
{
    return anyReference(word, [](QStringView) { return true; });
}

bool MarkupTokenizer::mayHoldMarkup(QStringView word)
{
    return anyReference(word, [](QStringView reference) {
        if (!reference.startsWith(u'#'))
            return false;
        const bool isHexadecimal = reference.startsWith(u"#x", Qt::CaseInsensitive);
        bool isNumber = false;
        const uint code = isHexadecimal ? reference.sliced(2).toUInt(&isNumber, 16)
                                        : reference.sliced(1).toUInt(&isNumber);
        return isNumber && isMarkup(code);
    });
}

MarkupTokenizer::Token MarkupTokenizer::next()
{
    while (_position < _markup.size()) {
        if (!isAt(u'<')) {
            const qsizetype found = _markup.indexOf(u'<', _position);
            const qsizetype end = found < 0 ? _markup.size() : found;
            _text = _markup.sliced(_position, end - _position);
            _position = end;
            return Token::Text;
        }
        ++_position;
        skipSpace();
        if (isAt(u'!')) {
            skipDeclaration();
        } else if (isAt(u'/')) {
            readClosingTag();
            return Token::ClosingTag;
        } else {
            readOpeningTag();
            return Token::OpeningTag;
        }
    }
    return Token::End;
}

bool MarkupTokenizer::isAt(char16_t character, qsizetype ahead) const
{
    return _position + ahead < _markup.size() && _markup.at(_position + ahead) == character;
}

void MarkupTokenizer::skipSpace()
{
    while (_position < _markup.size() && _markup.at(_position).isSpace() &&
           _markup.at(_position) != QChar::ParagraphSeparator)
        ++_position;
}

void MarkupTokenizer::skipPast(char16_t character)
{
    const qsizetype found = _markup.indexOf(character, _position);
    _position = found < 0 ? _markup.size() : found + 1;
}

void MarkupTokenizer::skipDeclaration()
{
    ++_position;
    if (isAt(u'-') && isAt(u'-', 1)) {
        const qsizetype end = _markup.indexOf("-->"_L1, _position + 2);
        _position = end < 0 ? _markup.size() : end + 3;
    } else {
        skipPast(u'>');
    }
}

void MarkupTokenizer::readClosingTag()
{
    ++_position;
    _name = readWord().toString().toLower().trimmed();
    skipPast(u'>');
}

void MarkupTokenizer::readOpeningTag()
{
    _name = readWord().toString().toLower();
    _attributes.clear();
    if (_position < _markup.size() && _markup.at(_position).isSpace())
        readAttributes();
    const qsizetype rest = _position;
    skipPast(u'>');
    _isSelfClosed = _markup.sliced(rest, _position - rest).contains(u'/');
}

void MarkupTokenizer::readAttributes()
{
    while (_position < _markup.size()) {
        skipSpace();
        if (isAt(u'>') || isAt(u'/'))
            return;
        const QStringView name = readWord();
        if (name.isEmpty())
            return;
        QStringView value = u"1";
        skipSpace();
        if (isAt(u'=')) {
            ++_position;
            skipSpace();
            value = readWord();
        }
        if (!value.isEmpty())
            _attributes.push_back({name, value});
    }
}

QStringView MarkupTokenizer::readWord()
{
    if (isAt(u'"'))
        return readQuoted(u'"');
    if (isAt(u'\''))
        return readQuoted(u'\'');
    const qsizetype begin = _position;
    while (_position < _markup.size() && !isAt(u'>') && !(isAt(u'/') && isAt(u'>', 1)) &&
           !isAt(u'<') && !isAt(u'=') && !_markup.at(_position).isSpace())
        ++_position;
    return _markup.sliced(begin, _position - begin);
}

/// A backslash keeps a single quote from ending the word, never a double one.
QStringView MarkupTokenizer::readQuoted(char16_t quote)
{
    const qsizetype begin = ++_position;
    while (_position < _markup.size()) {
        const bool isEscaped = quote == u'\'' && _markup.at(_position - 1) == u'\\';
        if (isAt(quote) && !isEscaped)
            return _markup.sliced(begin, _position++ - begin);
        ++_position;
    }
    return _markup.sliced(begin, _position - begin);
}

} // namespace teskel
