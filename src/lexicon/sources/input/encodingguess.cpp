// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/encodingguess.h"

#include "lexicon/sources/input/textdecoder.h"
#include "lexicon/text/utf8.h"

#include <QString>

#include <algorithm>
#include <map>
#include <memory>

#include <unicode/ucsdet.h>

namespace teskel
{

namespace
{

constexpr unsigned firstBeyondAscii = 0x80;

/// An encoding that texts are met in.
struct Candidate {
    const char* name;
    const char* detected; ///< what ICU calls it, or the one that it tells from this one by nothing
    // Where characters beyond ASCII take two bytes, the first bytes: of usual characters, else 0;
    // of signs; of the syllables that Japanese texts have, or 0.
    unsigned char firstUsual = 0;
    unsigned char lastUsual = 0;
    unsigned char signs = 0;
    unsigned char syllables = 0;
};

/// What is used most comes first.
constexpr Candidate candidates[] = {
    {"latin1", "ISO-8859-1"},
    {"windows-1252", "ISO-8859-1"},
    {"windows-1251", "windows-1251"},
    {"koi8-r", "KOI8-R"},
    {"iso-8859-2", "ISO-8859-2"},
    {"windows-1250", "ISO-8859-2"},
    {"windows-1254", "ISO-8859-9"},
    {"windows-1253", "ISO-8859-7"},
    {"iso-8859-7", "ISO-8859-7"},
    {"windows-1257", ""},
    {"iso-8859-5", "ISO-8859-5"},
    {"ibm866", ""},
    {"windows-1255", "ISO-8859-8"},
    {"windows-1256", "windows-1256"},
    {"iso-8859-6", "ISO-8859-6"},
    {"shift_jis", "Shift_JIS", 0x88, 0x97, 0x81, 0x82},
    {"euc-jp", "EUC-JP", 0xB0, 0xCF, 0xA1, 0xA4},
    {"euc-kr", "EUC-KR", 0xB0, 0xC8, 0xA1, 0},
    {"gb18030", "GB18030", 0xB0, 0xD7, 0xA1, 0},
    {"big5", "Big5", 0xA4, 0xC6, 0xA1, 0},
};
/// What ICU's confidence of a hundredth takes away from what is wrong.
constexpr double trust = 0.003;
/// So many of them are taken for granted where little is known.
constexpr size_t usualCandidates = 2;

/// ICU's names for what has the bytes of a Windows code page as well.
const std::map<std::string, std::string, std::less<>> isoNames = {
    {"windows-1252", "ISO-8859-1"}, {"windows-1250", "ISO-8859-2"}, {"windows-1253", "ISO-8859-7"},
    {"windows-1254", "ISO-8859-9"}, {"windows-1255", "ISO-8859-8"}, {"ISO-8859-8-I", "ISO-8859-8"},
};

/// The letters beyond ASCII of a language that is written in Latin letters, small ones.
constexpr std::u16string_view alphabets[] = {
    u"äöüß",      u"àâæçéèêëîïôœùûüÿ", u"áéíñóúü",           u"àáâãçéêíóôõúü", u"àèéìíîòóùú",
    u"åäöéü",     u"æøåéèòóôü",        u"áðéíóúýþæö",        u"áàéèëêïíóöúü",  u"àçèéíïòóúü",
    u"ąćęłńóśźż", u"áčďéěíňóřšťúůýž",  u"áäčďéíľĺňóôŕšťúýž", u"áéíóöőúüű",     u"čćđšž",
    u"ăâîşţșț",   u"çğıöşüâîûi\u0307", u"ąčęėįšųūž",         u"āčēģīķļņšūž",   u"äõöüšž",
};

/// A candidate and what speaks for it.
struct Reading {
    const Candidate* candidate = nullptr;
    QString text;
    double wrong = 0;      ///< about the share of the characters beyond ASCII that are
    size_t characters = 0; ///< beyond ASCII
};

bool isBeyond(QChar character)
{
    return character.unicode() >= firstBeyondAscii;
}

bool isOf(QChar character, std::u16string_view characters)
{
    return characters.find(character.unicode()) != std::u16string_view::npos;
}

/// The words that are no UTF-8, one a line: others say nothing, and there are many.
std::string tellingWords(std::string_view text)
{
    std::string words;
    for (size_t begin = 0; begin < text.size();) {
        size_t end = begin;
        while (end < text.size() && static_cast<unsigned char>(text[end]) > ' ')
            ++end;
        const std::string_view word = text.substr(begin, end - begin);
        if (utf8::wellFormedLength(word) < word.size())
            words.append(word) += '\n';
        begin = end + 1;
    }
    return words;
}

/// ICU's confidence in each encoding that it knows.
std::map<std::string, int, std::less<>> confidences(const std::string& words)
{
    std::map<std::string, int, std::less<>> found;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&status),
                                                                              ucsdet_close);
    ucsdet_setText(detector.get(), words.data(), static_cast<int32_t>(words.size()), &status);
    int32_t count = 0;
    const UCharsetMatch** matches = ucsdet_detectAll(detector.get(), &count, &status);
    for (int32_t i = 0; U_SUCCESS(status) && i < count; ++i) {
        std::string name = ucsdet_getName(matches[i], &status);
        if (const auto iso = isoNames.find(name); iso != isoNames.end())
            name = iso->second;
        int& confidence = found[name];
        confidence =
            std::max(confidence, static_cast<int>(ucsdet_getConfidence(matches[i], &status)));
    }
    return found;
}

bool isOfWord(QChar character)
{
    return character.isLetter() || character.isMark();
}

/// Whether a sign hardly stands between what is around it.
bool isSignOutOfPlace(QChar sign, QChar before, QChar after)
{
    if (isOf(sign, u"\u2019\u00B7\u30FB") ||
        (sign.unicode() >= 0x3000 && sign.unicode() < 0x3040) || sign.unicode() >= 0xFF00)
        return false;
    if (isOf(sign, u"\u00A1\u00BF\u00AB\u2018\u201C\u201E\u201A\u2039\u00A3\u20AC\u00A7"))
        return isOfWord(before);
    if (isOf(sign, u"\u00BB\u201D\u203A\u2026\u00B0\u00AE\u2122"))
        return after.isLetter();
    return !isOf(sign, u"\u2013\u2014\u00A0") &&
           (isOfWord(before) || isOfWord(after) || sign.category() == QChar::Symbol_Other);
}

/// Whether a letter hardly stands between what is around it: a capital behind a small one, or one
/// of another script than its neighbour.
bool isLetterOutOfPlace(const QString& text, qsizetype place)
{
    const QChar letter = text[place];
    const QChar before = place > 0 ? text[place - 1] : QChar(u'\n');
    const QChar after = place + 1 < text.size() ? text[place + 1] : QChar(u'\n');
    if (letter.isUpper() && (before.isLower() || (after.isUpper() && isBeyond(after))))
        return true;
    if (letter.isMark() && (before.script() == QChar::Script_Latin || !isOfWord(before)))
        return true;
    const auto isOther = [letter](QChar neighbour) {
        return neighbour.isLetter() && neighbour.script() != letter.script();
    };
    if (letter.script() > QChar::Script_Common && (isOther(before) || isOther(after)))
        return true;
    // Latin words are not of accents alone.
    return letter.script() == QChar::Script_Latin && place > 1 && isBeyond(before) &&
           before.isLetter() && isBeyond(text[place - 2]) && text[place - 2].isLetter();
}

/// The share of the Latin letters beyond ASCII that the language lacks which has most of them.
double foreignShare(const QString& text)
{
    QString letters;
    for (const QChar character : text.toLower()) {
        if (isBeyond(character) && character.script() == QChar::Script_Latin)
            letters += character;
    }
    qsizetype most = 0;
    for (const std::u16string_view alphabet : alphabets)
        most = std::max<qsizetype>(
            most, std::count_if(letters.begin(), letters.end(),
                                [alphabet](QChar letter) { return isOf(letter, alphabet); }));
    return letters.isEmpty()
               ? 0
               : static_cast<double>(letters.size() - most) / static_cast<double>(letters.size());
}

/// The share of the pairs of bytes that are no usual characters, as their first bytes tell.
double unusualShare(const std::string& words, const Candidate& candidate, size_t& pairs)
{
    size_t unusual = 0;
    bool hasSyllable = !candidate.syllables;
    pairs = 0;
    for (size_t place = 0; place < words.size(); ++place) {
        const auto lead = static_cast<unsigned char>(words[place]);
        if (lead < firstBeyondAscii)
            continue;
        ++pairs;
        const bool isSyllable =
            candidate.syllables && (lead == candidate.syllables || lead == candidate.syllables + 1);
        hasSyllable = hasSyllable || isSyllable;
        const bool isUsual = isSyllable || lead == candidate.signs || lead == candidate.signs + 2 ||
                             (lead >= candidate.firstUsual && lead <= candidate.lastUsual);
        unusual += isUsual ? 0 : 1;
        ++place;
    }
    constexpr double withoutSyllables = 0.3; // which Japanese texts have
    return static_cast<double>(unusual) / static_cast<double>(std::max<size_t>(pairs, 1)) +
           (hasSyllable ? 0 : withoutSyllables);
}

/// Reads the words in the encoding and judges what comes out.
void read(const std::string& words, Reading& reading)
{
    constexpr double ofNoText = 3;
    constexpr double unlikeliness = 1; // of what is used less, and shared by all characters
    TextDecoder decoder(reading.candidate->name);
    std::string text;
    decoder.decode(words, text);
    decoder.finish(text);
    double wrong = ofNoText * static_cast<double>(
                                  std::count(text.begin(), text.end(), TextDecoder::undecodable));
    reading.text = QString::fromStdString(text);
    size_t beyond = 0;
    for (qsizetype place = 0; place < reading.text.size(); ++place) {
        const QChar character = reading.text[place];
        if (!isBeyond(character))
            continue;
        ++beyond;
        const QChar::Category category = character.category();
        if (category == QChar::Other_Control || category == QChar::Other_NotAssigned ||
            category == QChar::Other_PrivateUse)
            wrong += ofNoText;
        else if (reading.candidate->firstUsual != 0)
            continue;
        else if (character.isLetter() || character.isMark())
            wrong += isLetterOutOfPlace(reading.text, place) ? 1 : 0;
        else if (isSignOutOfPlace(character, place > 0 ? reading.text[place - 1] : u'\n',
                                  place + 1 < reading.text.size() ? reading.text[place + 1]
                                                                  : u'\n'))
            wrong += 1;
    }
    reading.wrong = wrong / static_cast<double>(std::max<size_t>(beyond, 1));
    if (reading.candidate->firstUsual != 0)
        reading.wrong += unusualShare(words, *reading.candidate, beyond);
    else
        reading.wrong += foreignShare(reading.text);
    if (reading.candidate >= candidates + usualCandidates)
        reading.wrong += unlikeliness / static_cast<double>(beyond + 1);
    reading.characters = beyond;
}

} // namespace

EncodingGuess guessEncoding(std::string_view text)
{
    constexpr double near = 0.05;
    constexpr double mostWrong = 0.3; // of what is taken for sure
    constexpr size_t fewestCharacters = 4;
    constexpr size_t mostOthers = 2;
    const std::string words = tellingWords(text);
    const auto found = confidences(words);
    std::vector<Reading> readings;
    for (const Candidate& candidate : candidates) {
        Reading reading{&candidate, {}, 0, 0};
        read(words, reading);
        if (const auto confidence = found.find(candidate.detected); confidence != found.end())
            reading.wrong -= trust * confidence->second;
        readings.push_back(std::move(reading));
    }
    std::stable_sort(readings.begin(), readings.end(),
                     [](const Reading& a, const Reading& b) { return a.wrong < b.wrong; });
    const Reading& best = readings.front();
    EncodingGuess guess{
        best.candidate->name, best.wrong <= mostWrong && best.characters >= fewestCharacters, {}};
    std::vector<const Reading*> told = {&best};
    for (const Reading& each : readings) {
        const bool isTold = std::any_of(told.begin(), told.end(), [&each](const Reading* other) {
            return other->text == each.text;
        });
        if (isTold || each.wrong > best.wrong + near || told.size() > mostOthers)
            continue;
        guess.isSure = false;
        guess.others.emplace_back(each.candidate->name);
        told.push_back(&each);
    }
    return guess;
}

} // namespace teskel
