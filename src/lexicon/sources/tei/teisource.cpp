// SPDX-License-Identifier: MIT
#include "lexicon/sources/tei/teisource.h"

#include "lexicon/diagnostics/diagnosticcode.h"
#include "lexicon/sources/input/wideencoding.h"
#include "lexicon/sources/siblingfile.h"
#include "lexicon/sources/tei/teilayout.h"
#include "lexicon/text/textlines.h"
#include "lexicon/text/utf8.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

/// Of an XML declaration, bytes; usual ones have fifty.
constexpr size_t largestDeclaration = 1024;

/// What the XML declaration at the beginning of a document says; empty when it says nothing.
std::string declaredEncoding(std::string_view head)
{
    static const QRegularExpression declaration(
        u"^<\\?xml\\s[^>]*encoding\\s*=\\s*[\"']([A-Za-z0-9._:-]+)[\"']"_s);
    head = utf8::withoutByteOrderMark(head);
    return declaration.match(QString::fromLatin1(head.data(), static_cast<qsizetype>(head.size())))
        .captured(1)
        .toStdString();
}

} // namespace

Likeness TeiSource::looksLike(const std::string& path, std::string_view head)
{
    const size_t begin = head.find_first_not_of(std::string(utf8::byteOrderMark) + " \t\r\n");
    const bool isXml = begin != std::string_view::npos && head[begin] == '<';
    for (const std::string_view root : {"<TEI>", "<TEI ", "<TEI\n", "<TEI\r", "<TEI\t", "<TEI.2"}) {
        if (isXml && head.find(root) != std::string_view::npos)
            return Likeness::Certain;
    }
    const bool isNamed = !siblingfile::base(path, {".tei", ".xml"}).empty();
    return isNamed ? Likeness::Named : Likeness::None;
}

TeiSource::TeiSource(std::unique_ptr<InputFile> input)
    : _input(std::move(input))
    , _device(*_input)
    , _reader(&_device)
{
    _canReplace = false; // it would be no XML
    _reader.setEntityExpansionLimit(longestEntity);
}

/// Texts are decoded here when it is told in which encoding they are, or when the document tells of
/// one that is no UTF or begins as UTF-16; what it tells is hidden from the reader then, which
/// would go by it.
void TeiSource::prepareText()
{
    std::string_view head = _input->head(largestDeclaration);
    std::string declared = declaredEncoding(head);
    const bool isWide = !wideEncodingOf(head).empty();
    if (_texts.options().name.empty() && isWide)
        declared = wideEncodingOf(head);
    if (_texts.options().name.empty() && !declared.empty() &&
        (isWide || !QByteArrayView(declared).toByteArray().toLower().startsWith("utf")) &&
        TextDecoder::isKnown(declared)) {
        _input->decodeAs(declared);
        _texts.setOptions({declared, false});
        head = _input->head(largestDeclaration);
    }
    if (!_texts.options().name.empty()) {
        const size_t end = head.find("?>");
        if (utf8::withoutByteOrderMark(head).starts_with("<?xml") && end != std::string_view::npos)
            _device.blankOut(end + 2);
    }
    const bool isUtf8 =
        !_texts.options().name.empty() || declared.empty() || TextDecoder::isUtf8(declared);
    _device.watch([this, isUtf8](std::string_view piece) {
        if (isUtf8)
            _texts.checkNext(piece, _input->name());
        return _tags.look(piece);
    });
}

std::string TeiSource::place(int64_t line) const
{
    return placeInFile(_input->name(), static_cast<uint64_t>(line));
}

/// Goes on to the next token; false at the end and when something is wrong.
bool TeiSource::next()
{
    // A single token may be as long as it likes, were there no limit.
    _device.setLimit(_entryBegin + largestEntry);
    const QXmlStreamReader::TokenType token = _reader.readNext();
    _depth += token == QXmlStreamReader::StartElement ? 1 : 0;
    _depth -= token == QXmlStreamReader::EndElement ? 1 : 0;
    if (_device.isBeyondLimit())
        _failure = "an entry, or what stands between entries, is longer than 4 MiB";
    else if (_depth > deepest)
        _failure = "elements nest more than " + std::to_string(deepest) + " deep";
    else if (token == QXmlStreamReader::EntityReference) // declared in a DTD of another file
        _failure = "\"&" + _reader.name().toString().toStdString() + ";\" is not declared here";
    else if (_reader.hasError())
        _failure = "no well-formed XML: " + _reader.errorString().toStdString();
    return _failure.empty() && !_reader.atEnd();
}

/// Reads the element whose beginning is the current token, to its end.
bool TeiSource::readNode(TeiNode& node)
{
    node.name = _reader.name().toString();
    node.type = _reader.attributes().value("type"_L1).toString();
    std::vector<TeiNode*> open = {&node}; // children of the last one alone are added to
    while (next()) {
        if (_reader.isStartElement()) {
            TeiNode child;
            child.name = _reader.name().toString();
            child.type = _reader.attributes().value("type"_L1).toString();
            open.back()->children.push_back(std::move(child));
            open.push_back(&open.back()->children.back());
        } else if (_reader.isEndElement()) {
            open.pop_back();
            if (open.empty())
                return true;
        } else if (_reader.isCharacters()) {
            TeiNode text;
            text.text = _reader.text().toString();
            open.back()->children.push_back(std::move(text));
        }
    }
    return false;
}

/// A text is read whole, with what its entities stand for, which nothing else would limit.
void TeiSource::takeEntities(EntryIntake& intake)
{
    qsizetype longest = 0;
    for (const QXmlStreamEntityDeclaration& entity : _reader.entityDeclarations()) {
        const bool hasOthers = entity.value().contains(u'&');
        longest = std::max(longest, hasOthers ? longestEntity : entity.value().size());
        if (!entity.systemId().isEmpty() || !entity.publicId().isEmpty())
            intake.note(diagnostic::externalEntity, place(_reader.lineNumber()),
                        "the text of \"&" + entity.name().toString().toStdString() +
                            ";\" is in another file, which is not read; it is left out");
    }
    _device.countReferencesAs(static_cast<uint64_t>(std::min<qsizetype>(longest, longestEntity)));
    _entryBegin = _device.amountRead();
}

void TeiSource::takeTitle()
{
    TeiNode title;
    if (readNode(title) && _description.empty())
        _description = title.content();
}

void TeiSource::takeEntry(EntryIntake& intake)
{
    const std::string where = place(_reader.lineNumber());
    TeiNode node;
    if (!readNode(node))
        return;
    const TeiEntry entry = TeiEntry::layOut(node);
    if (entry.forms.empty())
        intake.note(diagnostic::entryWithoutWord, where,
                    "an entry without <orth> is left out: " + std::string(firstLine(entry.text)));
    countRead(_device.amountRead() - _entryBegin);
    for (const TeiEntry::Form& form : entry.forms) {
        addLaidOut(intake, form.word, Written::AsKey, form.line + "\n" + entry.text, ++_entryNumber,
                   where);
        if (!isInMeasure(where, _excess))
            return;
    }
}

bool TeiSource::read(EntryIntake& intake, std::string& error)
{
    prepareText();
    bool isTei = false;
    bool isInHeader = false;
    while (_excess.empty() && next()) {
        const QStringView name = _reader.name();
        if (_reader.isDTD())
            takeEntities(intake);
        if (_reader.isStartElement() && !isTei) {
            isTei = name == u"TEI" || name == u"TEI.2";
            if (!isTei) {
                error = _input->name() + " is no TEI document: its root is <" +
                        name.toString().toStdString() + ">";
                return false;
            }
        } else if (name == u"teiHeader") {
            isInHeader = _reader.isStartElement();
        } else if (_reader.isStartElement() && isInHeader && name == u"title") {
            takeTitle();
        } else if (_reader.isStartElement() && !isInHeader && name == u"entry") {
            takeEntry(intake);
        }
        if (!isInHeader && (_reader.isEndElement() || _reader.isStartElement()))
            _entryBegin = _device.amountRead();
    }
    _texts.checkEnd(_input->name());
    if (!_device.reason().empty())
        error = _device.reason();
    else if (!_excess.empty())
        error = _excess;
    else if (!_tags.look({}))
        error = place(static_cast<int64_t>(_tags.line())) + ": an element has more than " +
                std::to_string(TagWatch::mostAttributes) + " attributes";
    else if (!_failure.empty())
        error = place(_reader.lineNumber()) + ": " + _failure;
    else
        return _input->checkUnchanged(error);
    return false;
}

} // namespace teskel
