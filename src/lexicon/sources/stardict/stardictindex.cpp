// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictindex.h"

#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/lexiconsource.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// The number that begins a text, most significant byte first.
uint64_t takeNumber(std::string_view& text, size_t bytes)
{
    uint64_t value = 0;
    for (const char c : text.substr(0, bytes))
        value = value << 8 | static_cast<unsigned char>(c);
    text.remove_prefix(bytes);
    return value;
}

/// Takes a word, its NUL, and leaves `numberBytes` bytes or more; false when they are not there.
bool takeKey(std::string_view& text, size_t numberBytes, std::string_view& key)
{
    const size_t end = text.find('\0');
    if (end == std::string_view::npos || text.size() - end - 1 < numberBytes)
        return false;
    key = text.substr(0, end);
    text.remove_prefix(end + 1);
    return true;
}

bool readWhole(const std::string& path, std::string& text, std::string& error)
{
    InputFile file;
    return file.open(path, error) && file.readAll(text, error) && file.checkUnchanged(error);
}

} // namespace

bool StarDictIndex::readWords(const std::string& path, const StarDictInfo& info, std::string& error)
{
    if (!readWhole(path, _text, error))
        return false;
    if (info.indexBytes && *info.indexBytes != _text.size()) {
        error = path + " has " + std::to_string(_text.size()) +
                " bytes unpacked, but the .ifo says " + std::to_string(*info.indexBytes);
        return false;
    }
    constexpr size_t sizeBytes = 4;
    for (std::string_view rest = _text; !rest.empty();) {
        Word word;
        word.place = static_cast<uint32_t>(_words.size() + 1);
        if (!takeKey(rest, info.offsetBytes + sizeBytes, word.key)) {
            error = placeInFile(path, word.place) + ": the file ends within this word";
            return false;
        }
        word.offset = takeNumber(rest, info.offsetBytes);
        word.size = static_cast<uint32_t>(takeNumber(rest, sizeBytes));
        _words.push_back(word);
    }
    _wordCount = _words.size();
    return true;
}

bool StarDictIndex::readAlternatives(const std::string& path, std::string& error)
{
    if (!readWhole(path, _alternativesText, error))
        return false;
    constexpr size_t numberBytes = 4;
    std::vector<std::pair<uint64_t, Word>> alternatives; // with the number of their word
    for (std::string_view rest = _alternativesText; !rest.empty();) {
        Word word;
        word.place = static_cast<uint32_t>(alternatives.size() + 1);
        word.isAlternative = true;
        if (!takeKey(rest, numberBytes, word.key)) {
            error = placeInFile(path, word.place) + ": the file ends within this word";
            return false;
        }
        const uint64_t target = takeNumber(rest, numberBytes);
        if (target >= _wordCount) {
            error = placeInFile(path, word.place) + ": it stands for word " +
                    std::to_string(target) + " of the index, which has " +
                    std::to_string(_wordCount);
            return false;
        }
        word.offset = _words[target].offset;
        word.size = _words[target].size;
        alternatives.emplace_back(target, word);
    }
    std::stable_sort(alternatives.begin(), alternatives.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<Word> all;
    all.reserve(_words.size() + alternatives.size());
    auto next = alternatives.cbegin();
    for (uint64_t i = 0; i < _wordCount; ++i) {
        all.push_back(_words[i]);
        for (; next != alternatives.cend() && next->first == i; ++next)
            all.push_back(next->second);
    }
    _words = std::move(all);
    return true;
}

bool StarDictIndex::read(const std::string& path, const std::string& alternativesPath,
                         const StarDictInfo& info, std::string& error)
{
    return readWords(path, info, error) &&
           (alternativesPath.empty() || readAlternatives(alternativesPath, error));
}

} // namespace teskel
