// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace teskel
{

/// The elements of a rich text, nested as QTextDocument nests them.
///
/// The document ends elements that were left open, adds the table that a cell lacks, and goes back
/// into an element that had ended when a stray "</br>" follows; the tree does the same, tag by tag.
/// Where it could not be sure to, open() and close() say so.
class MarkupTree
{
public:
    enum class Kind : unsigned char {
        Other,
        Body,
        Caption,
        Cell,
        Definition,
        DefinitionList,
        Head,
        ListItem,
        Paragraph,
        Picture,
        Row,
        StyleSheet,
        Table,
        TableSection,
        Void,
    };

    struct Node {
        QString name;
        int parent = 0;
        /// How many elements it lies in, itself included.
        int depth = 0;
        Kind kind = Kind::Other;
        bool isBlock = false;
        /// Neither shown itself nor what it contains.
        bool isHidden = false;
    };

    /// What an element of that name, in lower case, is.
    static Kind kindOf(const QString& name);
    /// Whether text before and behind its tags never shares a line.
    static bool endsLine(const QString& name);

    MarkupTree();

    /// Adds an element, and the table and row around it that may be missing, and goes into it.
    /// @return false if the document may nest it elsewhere
    [[nodiscard]] bool open(const QString& name, bool isSelfClosed);
    /// Leaves the innermost element of that name with all that is open in it, if there is one.
    /// @return false if the document may leave another one
    [[nodiscard]] bool close(const QString& name);
    void addText(QStringView text);

    /// The nodes in the order of their tags; the first stands for the text and has no tag.
    const std::vector<Node>& nodes() const { return _nodes; }
    /// Whether text that comes next is style rules.
    bool isInStyleSheet() const;

private:
    /// What is known of the text behind an element that has ended.
    enum class Text : unsigned char { Empty, MaybeBlank, Present };
    enum class Answer : unsigned char { Yes, No, Maybe };

    const Node& at(int index) const { return _nodes[static_cast<std::size_t>(index)]; }
    int innermost(Kind kind, int from) const;
    int add(Node node);
    bool takeNode();
    void startText(int parent);
    int paragraphParent() const;
    int parentOf(Kind kind);
    void addMissingTable(Kind kind);

    std::vector<Node> _nodes;
    /// The element that the next one lies in.
    int _current = 0;
    /// The document appends text to the last tag, or makes a node for it behind an ended element.
    /// An empty text node is used again for the next element.
    bool _isInText = false;
    Text _text = Text::Empty;
    bool _textMayBeHidden = false;
    /// The last element without contents, and whether only one node has followed.
    int _lastVoid = 0;
    Answer _isBehindVoid = Answer::No;
    bool _hasReferenceInName = false;
};

} // namespace teskel
