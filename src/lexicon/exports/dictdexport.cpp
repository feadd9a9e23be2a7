// SPDX-License-Identifier: MIT
#include "lexicon/exports/dictdexport.h"

#include "lexicon/exports/commits.h"
#include "lexicon/text/plaintext.h"
#include "lexicon/text/utf8.h"

#include <QString>

#include <algorithm>

namespace teskel
{

namespace
{

/// A number to the base 64, most significant digit first.
std::string inDigits(uint64_t number)
{
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    do {
        text += digits[number % 64];
        number /= 64;
    } while (number > 0);
    std::reverse(text.begin(), text.end());
    return text;
}

/// As the server compares words: small letters, digits and blanks alone. A word without any of them
/// is its own key.
std::string keyOf(std::string_view headword)
{
    const QString word =
        QString::fromLatin1(headword.data(), static_cast<qsizetype>(headword.size())).toLower();
    QString key;
    for (const QChar character : word) {
        if (character.isLetterOrNumber())
            key += character;
        else if (character.isSpace() && !key.isEmpty() && !key.endsWith(u' '))
            key += u' ';
    }
    key = key.trimmed();
    return (key.isEmpty() ? word : key).toStdString();
}

} // namespace

DictdExport::DictdExport(const std::string& base, const std::string& title)
    : _index(base + ".index")
    , _articles(base + ".dict")
{
    addText("00databaseutf8", "\n");
    addText("00databaseshort", title + '\n');
}

bool DictdExport::addText(std::string key, const std::string& text)
{
    _lines.push_back({std::move(key), _bytes, text.size()});
    _bytes += text.size();
    return _articles.write(text);
}

bool DictdExport::add(std::string_view headword, std::string_view article)
{
    return addText(keyOf(headword),
                   utf8::fromLatin1(headword) + '\n' + plainText(utf8::fromLatin1(article)) + '\n');
}

bool DictdExport::commit(std::string& error)
{
    std::stable_sort(_lines.begin(), _lines.end(),
                     [](const Line& a, const Line& b) { return a.key < b.key; });
    for (const Line& line : _lines)
        _index.write(line.key + '\t' + inDigits(line.offset) + '\t' + inDigits(line.size) + '\n');
    // What names the other comes last.
    return commitTogether({&_articles, &_index}, error);
}

} // namespace teskel
