// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictindex.h"

#include "lexicon/sources/lexiconsource.h"

#include <QtEndian>

#include <algorithm>

namespace teskel
{

namespace
{

constexpr size_t sizeBytes = 4;
constexpr size_t targetBytes = 4;

/// A number of four or eight bytes, most significant byte first.
uint64_t number(std::string_view bytes)
{
    return bytes.size() == sizeof(quint64) ? qFromBigEndian<quint64>(bytes.data())
                                           : qFromBigEndian<quint32>(bytes.data());
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

bool StarDictIndex::readAlternatives(const std::string& path, std::string& error)
{
    InputFile file;
    if (!file.open(path, error))
        return false;
    _alternativesName = file.name();
    bool isEnd = false;
    while (true) {
        Alternative alternative;
        alternative.word.isAlternative = true;
        alternative.word.place = static_cast<uint32_t>(_alternatives.size() + 1);
        if (!readWord(file, targetBytes, alternative.word, isEnd, error))
            return false;
        if (isEnd)
            break;
        alternative.target = static_cast<uint32_t>(number(_numbers));
        _alternatives.push_back(std::move(alternative));
    }
    std::stable_sort(_alternatives.begin(), _alternatives.end(),
                     [](const auto& a, const auto& b) { return a.target < b.target; });
    return true;
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
    if (_wordCount > 0 && _nextAlternative < _alternatives.size() &&
        _alternatives[_nextAlternative].target == _wordCount - 1) {
        word = _alternatives[_nextAlternative++].word;
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
    if (_nextAlternative < _alternatives.size()) {
        const Alternative& alternative = _alternatives[_nextAlternative];
        error = placeInFile(_alternativesName, alternative.word.place) + ": it stands for word " +
                std::to_string(alternative.target) + " of the index, which has " +
                std::to_string(_wordCount);
        return false;
    }
    return true;
}

} // namespace teskel
