// SPDX-License-Identifier: MIT
#include "lexicon/verify/lexiconverifier.h"

#include "lexicon/file/lexiconfile.h"
#include "lexicon/verify/checktable.h"

#include <QFile>

namespace teskel
{

namespace
{

/// The check that tells whether a record's entries can be counted.
constexpr std::string_view layoutCheck = "layout";

} // namespace

LexiconVerifier::LexiconVerifier()
    : _isSelected(allChecks().size(), true)
    , _holds(allChecks().size(), false)
{
}

bool LexiconVerifier::select(std::string_view name)
{
    size_t place = placeOfCheck(name);
    if (place == allChecks().size())
        return false;
    if (!_hasSelection)
        _isSelected.assign(allChecks().size(), false);
    _hasSelection = true;
    _isSelected[place] = true;
    while (const char* needed = allChecks()[place].needs) {
        place = placeOfCheck(needed);
        _isSelected[place] = true;
    }
    return true;
}

void LexiconVerifier::selectQuick()
{
    for (size_t place = 0; place < allChecks().size(); ++place)
        _isSelected[place] = allChecks()[place].ofFile != nullptr;
}

std::vector<std::string> LexiconVerifier::leftOut() const
{
    std::vector<std::string> names;
    for (size_t place = 0; place < allChecks().size(); ++place) {
        if (!_isSelected[place])
            names.emplace_back(allChecks()[place].name);
    }
    return names;
}

bool LexiconVerifier::run(const std::string& path, std::string& error)
{
    QFile file;
    if (!openLexiconFile(file, path, error))
        return false;
    file.close(); // what is checked may get the last descriptor that there is
    _file.load(file.fileName());
    for (size_t place = 0; place < allChecks().size(); ++place) {
        const Check& check = allChecks()[place];
        if (!check.ofFile || !isDue(place))
            continue;
        _file.setCheck(check.name);
        _holds[place] = check.ofFile(_file);
    }
    _wordRecords = _file.wordRecords();
    checkWordRecords();
    return true;
}

bool LexiconVerifier::isDue(size_t place) const
{
    const char* needed = allChecks()[place].needs;
    return _isSelected[place] && (!needed || _holds[placeOfCheck(needed)]);
}

void LexiconVerifier::checkWordRecords()
{
    const size_t layout = placeOfCheck(layoutCheck);
    if (_isSelected[layout])
        _headwords = 0;
    WordRecord record;
    for (uint64_t i = 0; i < _wordRecords; ++i) {
        record.number = static_cast<unsigned>(i) + limits::firstWordRecord;
        record.text.reset();
        checkWordRecord(record);
        if (!_holds[layout])
            continue;
        const quint16 count = record.text->count();
        *_headwords += count;
        record.headwordBefore = record.text->word(static_cast<quint16>(count - 1));
    }
}

void LexiconVerifier::checkWordRecord(WordRecord& record)
{
    for (size_t place = 0; place < allChecks().size(); ++place) {
        const Check& check = allChecks()[place];
        if (!check.ofRecord)
            continue;
        _holds[place] = false;
        if (!isDue(place))
            continue;
        _file.setCheck(check.name);
        _holds[place] = check.ofRecord(_file, record);
    }
}

} // namespace teskel
