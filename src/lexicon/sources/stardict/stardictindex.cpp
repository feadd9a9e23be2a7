// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictindex.h"

#include "lexicon/sources/lexiconsource.h"

#include <QtEndian>

#include <charconv>

namespace teskel
{

namespace
{

constexpr size_t sizeBytes = 4;
constexpr size_t targetBytes = 4;
constexpr size_t mostDigits = 20;

/// A number of four or eight bytes, most significant byte first.
uint64_t number(std::string_view bytes)
{
    return bytes.size() == sizeof(quint64) ? qFromBigEndian<quint64>(bytes.data())
                                           : qFromBigEndian<quint32>(bytes.data());
}

/// A number as a headword that sorts where it does.
std::string sortKey(uint64_t number)
{
    const std::string digits = std::to_string(number);
    return std::string(mostDigits - digits.size(), '0') + digits;
}

uint64_t numberOf(std::string_view sortKey)
{
    uint64_t value = 0;
    std::from_chars(sortKey.data(), sortKey.data() + sortKey.size(), value);
    return value;
}

} // namespace

/// Reads a word with its NUL and the numbers behind it. `word.place` is known already.
bool StarDictIndex::readWord(InputFile& file, size_t numberBytes, Word& word, bool& isEnd,
                             std::string& error)
{
    if (!file.readLine(word.key, isEnd, error, '\0'))
        return false;
    if (isEnd)
        return file.checkUnchanged(error);
    if (!file.readBytes(numberBytes, _numbers, error))
        return false;
    if (_numbers.size() == numberBytes)
        return true;
    error = placeInFile(file.name(), word.place) + ": the file ends within this word";
    return false;
}

/// They stand in the order of their own words; the index names the words that they stand for.
bool StarDictIndex::readAlternatives(const std::string& path, std::string& error)
{
    InputFile file;
    if (!file.open(path, error))
        return false;
    _alternativesName = file.name();
    _alternatives = std::make_unique<EntrySorter>();
    Word word;
    bool isEnd = false;
    for (word.place = 1; !isEnd; ++word.place) {
        if (!readWord(file, targetBytes, word, isEnd, error))
            return false;
        if (!isEnd)
            _alternatives->add(sortKey(number(_numbers)), word.key, word.place);
    }
    error = _alternatives->error();
    if (!error.empty())
        return false;
    _byTarget = _alternatives->sorted();
    readAlternative();
    return true;
}

void StarDictIndex::readAlternative()
{
    LexiconEntry entry;
    _hasAlternative = _byTarget->next(entry);
    if (!_hasAlternative)
        return;
    _alternative.key = entry.article();
    _alternative.place = entry.order;
    _alternative.isAlternative = true;
    _target = numberOf(entry.headword());
}

bool StarDictIndex::open(const std::string& path, const std::string& alternativesPath,
                         const StarDictInfo& info, std::string& error)
{
    _info = info;
    return _file.open(path, error) &&
           (alternativesPath.empty() || readAlternatives(alternativesPath, error));
}

bool StarDictIndex::next(Word& word, bool& isEnd, std::string& error)
{
    isEnd = false;
    if (_hasAlternative && _target + 1 == _wordCount) {
        word = _alternative;
        readAlternative();
        word.offset = _word.offset;
        word.size = _word.size;
        return true;
    }
    _word.place = _wordCount + 1;
    if (!readWord(_file, _info.offsetBytes + sizeBytes, _word, isEnd, error))
        return false;
    if (isEnd)
        return checkEnd(error);
    ++_wordCount;
    _bytesRead += _word.key.size() + 1 + _numbers.size();
    _word.offset = number(std::string_view(_numbers).substr(0, _info.offsetBytes));
    _word.size =
        static_cast<uint32_t>(number(std::string_view(_numbers).substr(_info.offsetBytes)));
    word = _word;
    return true;
}

bool StarDictIndex::checkEnd(std::string& error) const
{
    if (_info.indexBytes && *_info.indexBytes != _bytesRead) {
        error = _file.name() + " has " + std::to_string(_bytesRead) +
                " bytes unpacked, but the .ifo says " + std::to_string(*_info.indexBytes);
        return false;
    }
    if (_hasAlternative) {
        error = placeInFile(_alternativesName, _alternative.place) + ": it stands for word " +
                std::to_string(_target) + " of the index, which has " + std::to_string(_wordCount);
        return false;
    }
    return true;
}

} // namespace teskel
