// SPDX-License-Identifier: MIT
#include "lexicon/exports/stardictexport.h"

#include "lexicon/exports/commits.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

namespace teskel
{

namespace
{

constexpr size_t longestKey = 255;

/// The order of the index: ASCII without regard to case, then bytes.
bool comesBefore(const std::string& a, const std::string& b)
{
    const auto lower = [](char c) {
        return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    };
    const auto difference = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                          [&](char x, char y) { return lower(x) == lower(y); });
    if (difference.first == a.end() && difference.second == b.end())
        return a < b;
    if (difference.first == a.end() || difference.second == b.end())
        return difference.first == a.end();
    return lower(*difference.first) < lower(*difference.second);
}

/// UTF-8, cut between characters.
std::string cutKey(std::string key)
{
    if (key.size() <= longestKey)
        return key;
    size_t end = longestKey;
    while ((static_cast<unsigned char>(key[end]) & 0xC0) == 0x80)
        --end;
    key.resize(end);
    return key;
}

/// Most significant byte first.
void appendNumber(std::string& bytes, uint32_t number)
{
    const uint32_t bigEndian = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&bigEndian), sizeof bigEndian);
}

} // namespace

StarDictExport::StarDictExport(const std::string& base, std::string title)
    : _info(base + ".ifo")
    , _index(base + ".idx")
    , _articles(base + ".dict")
    , _base(base)
    , _title(std::move(title))
{
}

bool StarDictExport::add(std::string_view headword, std::string_view article)
{
    QString html = withLetterReferencesResolved(
        QString::fromLatin1(article.data(), static_cast<qsizetype>(article.size())));
    const std::string text = html.replace(u'\n', QStringLiteral("<br>")).toStdString();
    _words.push_back({cutKey(utf8::fromLatin1(headword)), static_cast<uint32_t>(_bytes),
                      static_cast<uint32_t>(text.size())});
    _bytes += text.size();
    return _articles.write(text);
}

std::string StarDictExport::info(uint64_t indexBytes) const
{
    return "StarDict's dict ifo file\nversion=2.4.2\nwordcount=" + std::to_string(_words.size()) +
           "\nidxfilesize=" + std::to_string(indexBytes) + "\nbookname=" + _title +
           "\nsametypesequence=h\n";
}

bool StarDictExport::commit(std::string& error)
{
    if (_bytes > std::numeric_limits<uint32_t>::max()) {
        error = "cannot write " + _base + ".dict: it would grow beyond 4 GiB";
        return false;
    }
    std::stable_sort(_words.begin(), _words.end(),
                     [](const Word& a, const Word& b) { return comesBefore(a.key, b.key); });
    uint64_t indexBytes = 0;
    for (const Word& word : _words) {
        std::string line = word.key + '\0';
        appendNumber(line, word.offset);
        appendNumber(line, word.size);
        indexBytes += line.size();
        _index.write(line);
    }
    _info.write(info(indexBytes));
    // What names the others comes last.
    return commitTogether({&_articles, &_index, &_info}, error);
}

} // namespace teskel
