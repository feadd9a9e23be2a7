// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace teskel
{

/// Divides rich text into text and tags exactly where QTextDocument divides it.
///
/// That is not where HTML does: every "<" begins a tag whatever follows, a tag may be quoted or
/// lack its end, and neither a style sheet nor a title hides a tag. The views that it gives out
/// point into the markup, which must outlive it.
class MarkupTokenizer
{
public:
    enum class Token : char { Text, OpeningTag, ClosingTag, End };

    /// As they stand, character references and case included.
    struct Attribute {
        QStringView name;
        QStringView value;
    };

    explicit MarkupTokenizer(QStringView markup)
        : _markup(markup)
    {
    }

    /// Whether the document may read a character reference in a word.
    static bool mayHoldReference(QStringView word);
    /// Whether it may read one that stands for a letter, a digit or a sign of its own markup. It
    /// knows those by number alone.
    static bool mayHoldMarkup(QStringView word);

    /// Moves on to the next token. Comments and declarations are none.
    Token next();

    /// Where in the markup the next token begins.
    qsizetype position() const { return _position; }
    /// The text, after a token Text.
    QStringView text() const { return _text; }
    /// The name of the tag in lower case, empty in "<>".
    const QString& name() const { return _name; }
    /// The attributes of an opening tag.
    const std::vector<Attribute>& attributes() const { return _attributes; }
    /// Whether an opening tag closes itself, as "<br/>" does.
    bool isSelfClosed() const { return _isSelfClosed; }

private:
    bool isAt(char16_t character, qsizetype ahead = 0) const;
    void skipSpace();
    void skipPast(char16_t character);
    void skipDeclaration();
    void readClosingTag();
    void readOpeningTag();
    void readAttributes();
    QStringView readWord();
    QStringView readQuoted(char16_t quote);

    QStringView _markup;
    qsizetype _position = 0;
    QStringView _text;
    QString _name;
    std::vector<Attribute> _attributes;
    bool _isSelfClosed = false;
};

} // namespace teskel
