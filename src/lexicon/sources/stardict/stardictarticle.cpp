// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictarticle.h"

#include "lexicon/sources/stardict/markuprewriter.h"
#include "lexicon/text/characterreference.h"
#include "lexicon/text/utf8.h"

#include <QtEndian>

#include <algorithm>

namespace teskel
{

namespace
{

/// Those that can be shown.
constexpr std::string_view textTypes = "tmlhxg";

struct Field {
    char type;
    std::string_view text;
};

/// Takes the text of a field. Those of types in capital letters have their length in front, the
/// others a NUL at their end; the last of a known sequence has neither.
std::string_view takeText(std::string_view& data, char type, bool isLast, bool& isDamaged)
{
    size_t length = data.size();
    size_t passed = length;
    if (!isLast && type >= 'A' && type <= 'Z') {
        constexpr size_t lengthBytes = sizeof(quint32);
        const bool hasLength = data.size() >= lengthBytes;
        const size_t claimed = hasLength ? qFromBigEndian<quint32>(data.data()) : 0;
        data.remove_prefix(std::min(lengthBytes, data.size()));
        isDamaged = isDamaged || !hasLength || claimed > data.size();
        length = passed = std::min(claimed, data.size());
    } else if (!isLast) {
        const size_t end = data.find('\0');
        isDamaged = isDamaged || end == std::string_view::npos;
        length = std::min(end, length);
        passed = std::min(length + 1, data.size());
    }
    const std::string_view text = data.substr(0, length);
    data.remove_prefix(passed);
    return text;
}

std::vector<Field> fieldsOf(std::string_view data, std::string_view typeSequence, bool& isDamaged)
{
    std::vector<Field> fields;
    for (size_t i = 0; i < typeSequence.size(); ++i) {
        const bool isLast = i + 1 == typeSequence.size();
        fields.push_back({typeSequence[i], takeText(data, typeSequence[i], isLast, isDamaged)});
    }
    while (typeSequence.empty() && !data.empty()) {
        const char type = data.front();
        data.remove_prefix(1);
        // Some makers leave the NUL of the last field out.
        const bool isLast = type >= 'a' && type <= 'z' && data.find('\0') == std::string_view::npos;
        fields.push_back({type, takeText(data, type, isLast, isDamaged)});
    }
    return fields;
}

void appendLine(std::string& text, std::string_view line)
{
    if (!text.empty() && !line.empty())
        text += '\n';
    text += line;
}

/// A pronunciation without the signs that some put round it.
std::string_view bare(std::string_view text)
{
    while (!text.empty() && std::string_view(" /[\n").find(text.front()) != std::string_view::npos)
        text.remove_prefix(1);
    while (!text.empty() && std::string_view(" /]\n").find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    return text;
}

std::string readable(std::string_view text, bool& wasLatin1)
{
    if (utf8::decoded(text).find(utf8::invalid) == std::u32string::npos)
        return std::string(text);
    wasLatin1 = true;
    return utf8::fromLatin1(text);
}

} // namespace

StarDictArticle StarDictArticle::parse(std::string_view data, std::string_view typeSequence,
                                       const Decoded& decoded)
{
    StarDictArticle article;
    bool hasMarkup = false;
    for (const Field& field : fieldsOf(data, typeSequence, article.isDamaged)) {
        std::string plain;
        std::string rich;
        const bool isText = textTypes.find(field.type) != std::string_view::npos;
        const std::string_view text =
            isText && decoded ? decoded(field.type, field.text) : field.text;
        switch (field.type) {
        case 't':
            appendLine(article.pronunciation, bare(text));
            break;
        case 'm':
            plain = text;
            break;
        case 'l':
            plain = readable(text, article.wasLatin1);
            break;
        case 'h':
            rich = markup::fromHtml(text);
            break;
        case 'x':
            rich = markup::fromXdxf(text);
            break;
        case 'g':
            rich = markup::fromPango(text);
            break;
        default:
            article.skipped.push_back(field.type);
        }
        hasMarkup = hasMarkup || field.type == 'h' || field.type == 'x' || field.type == 'g';
        appendLine(article.plain, plain);
        appendLine(article.rich, plain.empty() ? rich : escapedMarkup(plain));
    }
    (hasMarkup ? article.plain : article.rich).clear();
    return article;
}

} // namespace teskel
