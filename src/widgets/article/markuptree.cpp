// SPDX-License-Identifier: MIT
#include "widgets/article/markuptree.h"

#include "widgets/article/markuptokenizer.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

using Kind = MarkupTree::Kind;

enum class Display : unsigned char { Inline, Block, Hidden };

struct ElementType {
    std::string_view name;
    Kind kind;
    Display display;
};

/// What QTextDocument knows, sorted by name, as far as nesting depends on it.
constexpr std::array elementTypes{
    ElementType{"a", Kind::Other, Display::Inline},
    ElementType{"address", Kind::Other, Display::Inline},
    ElementType{"b", Kind::Other, Display::Inline},
    ElementType{"big", Kind::Other, Display::Inline},
    ElementType{"blockquote", Kind::Other, Display::Block},
    ElementType{"body", Kind::Body, Display::Block},
    ElementType{"br", Kind::Void, Display::Inline},
    ElementType{"caption", Kind::Caption, Display::Block},
    ElementType{"center", Kind::Other, Display::Block},
    ElementType{"cite", Kind::Other, Display::Inline},
    ElementType{"code", Kind::Other, Display::Inline},
    ElementType{"dd", Kind::Definition, Display::Block},
    ElementType{"dfn", Kind::Other, Display::Inline},
    ElementType{"div", Kind::Other, Display::Block},
    ElementType{"dl", Kind::DefinitionList, Display::Block},
    ElementType{"dt", Kind::Definition, Display::Block},
    ElementType{"em", Kind::Other, Display::Inline},
    ElementType{"font", Kind::Other, Display::Inline},
    ElementType{"h1", Kind::Other, Display::Block},
    ElementType{"h2", Kind::Other, Display::Block},
    ElementType{"h3", Kind::Other, Display::Block},
    ElementType{"h4", Kind::Other, Display::Block},
    ElementType{"h5", Kind::Other, Display::Block},
    ElementType{"h6", Kind::Other, Display::Block},
    ElementType{"head", Kind::Head, Display::Hidden},
    ElementType{"hr", Kind::Void, Display::Block},
    ElementType{"html", Kind::Other, Display::Inline},
    ElementType{"i", Kind::Other, Display::Inline},
    ElementType{"img", Kind::Picture, Display::Inline},
    ElementType{"kbd", Kind::Other, Display::Inline},
    ElementType{"li", Kind::ListItem, Display::Block},
    ElementType{"link", Kind::Other, Display::Hidden},
    ElementType{"meta", Kind::Void, Display::Hidden},
    ElementType{"nobr", Kind::Other, Display::Inline},
    ElementType{"ol", Kind::Other, Display::Block},
    ElementType{"p", Kind::Paragraph, Display::Block},
    ElementType{"pre", Kind::Other, Display::Block},
    ElementType{"qt", Kind::Body, Display::Block},
    ElementType{"s", Kind::Other, Display::Inline},
    ElementType{"samp", Kind::Other, Display::Inline},
    ElementType{"script", Kind::Other, Display::Hidden},
    ElementType{"small", Kind::Other, Display::Inline},
    ElementType{"span", Kind::Other, Display::Inline},
    ElementType{"strong", Kind::Other, Display::Inline},
    ElementType{"style", Kind::StyleSheet, Display::Hidden},
    ElementType{"sub", Kind::Other, Display::Inline},
    ElementType{"sup", Kind::Other, Display::Inline},
    ElementType{"table", Kind::Table, Display::Inline},
    ElementType{"tbody", Kind::TableSection, Display::Inline},
    ElementType{"td", Kind::Cell, Display::Block},
    ElementType{"tfoot", Kind::TableSection, Display::Inline},
    ElementType{"th", Kind::Cell, Display::Block},
    ElementType{"thead", Kind::TableSection, Display::Inline},
    ElementType{"title", Kind::Other, Display::Hidden},
    ElementType{"tr", Kind::Row, Display::Inline},
    ElementType{"tt", Kind::Other, Display::Inline},
    ElementType{"u", Kind::Other, Display::Inline},
    ElementType{"ul", Kind::Other, Display::Block},
    ElementType{"var", Kind::Other, Display::Inline},
};

const ElementType* typeOf(const QString& name)
{
    const auto isLess = [](const ElementType& type, const QString& wanted) {
        return QLatin1StringView(type.name) < wanted;
    };
    const auto* const type =
        std::lower_bound(elementTypes.begin(), elementTypes.end(), name, isLess);
    const bool isKnown = type != elementTypes.end() && QLatin1StringView(type->name) == name;
    return isKnown ? type : nullptr;
}

bool isTableBody(Kind kind)
{
    return kind == Kind::Table || kind == Kind::TableSection;
}

bool isAllowedIn(Kind kind, Kind parent)
{
    switch (kind) {
    case Kind::Definition:
        return parent == Kind::DefinitionList;
    case Kind::Row:
        return isTableBody(parent);
    case Kind::Cell:
        return parent == Kind::Row;
    case Kind::TableSection:
    case Kind::Caption:
        return parent == Kind::Table;
    case Kind::Body:
        return parent != Kind::Head;
    default:
        return true;
    }
}

bool isVoid(Kind kind)
{
    return kind == Kind::Void || kind == Kind::Picture;
}

/// Text that a character reference may reduce to one blank is no longer than this.
constexpr qsizetype longestReference = 12;

bool isPlainName(const QString& name)
{
    return std::all_of(name.cbegin(), name.cend(), [](QChar character) {
        return (character >= u'a' && character <= u'z') || (character >= u'0' && character <= u'9');
    });
}

} // namespace

MarkupTree::Kind MarkupTree::kindOf(const QString& name)
{
    const ElementType* const type = typeOf(name);
    return type == nullptr ? Kind::Other : type->kind;
}

bool MarkupTree::endsLine(const QString& name)
{
    const ElementType* const type = typeOf(name);
    if (type == nullptr)
        return false;
    return type->display == Display::Block || type->kind == Kind::Table ||
           type->kind == Kind::Row || name == "br"_L1;
}

MarkupTree::MarkupTree()
{
    _nodes.push_back({});
}

bool MarkupTree::isInStyleSheet() const
{
    return !_isInText && at(_current).kind == Kind::StyleSheet;
}

void MarkupTree::addText(QStringView text)
{
    if (!_isInText || text.isEmpty())
        return;
    const bool isBlank = std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    const bool mayBeBlank = isBlank || (text.contains(u'&') && text.size() <= longestReference);
    if (!mayBeBlank)
        _text = Text::Present;
    else if (_text == Text::Empty)
        _text = Text::MaybeBlank;
}

/// The document takes an empty text node for what comes next, else appends a node.
/// @return whether the node may be the old one
bool MarkupTree::takeNode()
{
    const bool isTaken = _isInText && _text != Text::Present;
    if (!isTaken)
        _isBehindVoid = Answer::No;
    else if (_text == Text::MaybeBlank && _isBehindVoid == Answer::Yes)
        _isBehindVoid = Answer::Maybe;
    return isTaken;
}

void MarkupTree::startText(int parent)
{
    const bool isTaken = takeNode();
    // A node that is taken again stays hidden.
    _textMayBeHidden = at(parent).isHidden || (isTaken && _textMayBeHidden);
    _current = parent;
    _isInText = true;
    _text = Text::Empty;
}

int MarkupTree::innermost(Kind kind, int from) const
{
    while (from != 0 && at(from).kind != kind)
        from = at(from).parent;
    return from;
}

int MarkupTree::add(Node node)
{
    node.depth = at(node.parent).depth + 1;
    _nodes.push_back(std::move(node));
    return static_cast<int>(_nodes.size()) - 1;
}

/// A paragraph ends the inline elements around it if they lie in a paragraph.
int MarkupTree::paragraphParent() const
{
    int parent = _current;
    while (parent != 0 && !at(parent).isBlock)
        parent = at(parent).parent;
    return at(parent).kind == Kind::Paragraph ? parent : _current;
}

int MarkupTree::parentOf(Kind kind)
{
    int parent = kind == Kind::Paragraph ? paragraphParent() : _current;
    const bool nestsInItself = kind != Kind::Paragraph && kind != Kind::ListItem;
    if (!nestsInItself && at(parent).kind == kind)
        parent = at(parent).parent;
    while (parent != 0 && !isAllowedIn(kind, at(parent).kind))
        parent = at(parent).parent;
    return parent;
}

/// Adds the table, and for a data cell the row, that `kind` needs around it.
void MarkupTree::addMissingTable(Kind kind)
{
    if (innermost(kind == Kind::Row ? Kind::Table : Kind::Row, _current) != 0)
        return;
    _current = add({u"table"_s, _current, 0, Kind::Table});
    if (kind == Kind::Cell)
        _current = add({u"tr"_s, _current, 0, Kind::Row});
    _isBehindVoid = Answer::No;
}

bool MarkupTree::open(const QString& name, bool isSelfClosed)
{
    if (MarkupTokenizer::mayHoldMarkup(name))
        return false;
    if (name.isEmpty()) {
        startText(_current);
        return true;
    }
    _hasReferenceInName = _hasReferenceInName || MarkupTokenizer::mayHoldReference(name);

    const bool isTaken = takeNode();
    const ElementType* const type = typeOf(name);
    const Kind kind = type == nullptr ? Kind::Other : type->kind;
    if (kind == Kind::Row || name == "td"_L1)
        addMissingTable(kind);

    const int parent = parentOf(kind);
    const bool isHidden =
        at(parent).isHidden || (type != nullptr && type->display == Display::Hidden);
    // An element that the document does not know is shown as the node was that it takes.
    if (type == nullptr && !isHidden && isTaken && _textMayBeHidden)
        return false;
    const bool isBlock = !isHidden && type != nullptr && type->display == Display::Block;
    _current = add({name, parent, 0, kind, isBlock, isHidden});
    _isInText = false;
    if (isVoid(kind) || isSelfClosed) {
        const int node = _current;
        startText(parent);
        if (isVoid(kind)) {
            _lastVoid = node;
            _isBehindVoid = Answer::Yes;
        }
    }
    return true;
}

bool MarkupTree::close(const QString& name)
{
    if (MarkupTokenizer::mayHoldReference(name) || (_hasReferenceInName && !isPlainName(name)))
        return false;
    if (name.isEmpty())
        return true;
    if (_isBehindVoid != Answer::No && at(_lastVoid).name == name) {
        const int parent = at(_lastVoid).parent;
        if (_isBehindVoid == Answer::Yes)
            startText(parent);
        else
            _text = Text::MaybeBlank;
        return parent == _current;
    }
    int node = _current;
    while (node != 0 && at(node).name != name)
        node = at(node).parent;
    if (node != 0)
        startText(at(node).parent);
    return true;
}

} // namespace teskel
