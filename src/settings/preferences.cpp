// SPDX-License-Identifier: MIT
#include "settings/preferences.h"

#include "platform/config.h"
#include "settings/fontgroups.h"
#include "settings/fontkeys.h"

#include <QFontInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

using teskel::FontGroups;
using teskel::fontNameKey;
using teskel::fontSizeKey;

namespace
{

constexpr int mruLimit = 6;
constexpr int globalFontSize = 12;

QString configName()
{
    return u"Teskel"_s;
}
QString viewGroup()
{
    return u"ViewPreferences"_s;
}
QString mruGroup()
{
    return u"MRU List"_s;
}
QString globalFontName()
{
    return u"helvetica"_s;
}
QString mruKey(qsizetype number)
{
    return u"List%1"_s.arg(number);
}

/// The word as an 8-bit string, which ends where the first character has no byte of its own.
QByteArray toBytes(const QString& word)
{
    const auto end = std::find_if(word.cbegin(), word.cend(),
                                  [](QChar character) { return character.toLatin1() == '\0'; });
    return QStringView(word.cbegin(), end).toLatin1();
}

/// Point size of `font`, also when the font was set in pixels.
int pointSizeOf(const QFont& font)
{
    return font.pointSize() > 0 ? font.pointSize() : QFontInfo(font).pointSize();
}

/// Applies size, then family; a size that no font can have leaves the size as it is.
void applyFont(QFont& font, int pointSize, const QString& family)
{
    if (pointSize > 0)
        font.setPointSize(pointSize);
    font.setFamily(family);
}

void writeFont(Config& config, const QFont& font)
{
    config.writeEntry(fontSizeKey(), pointSizeOf(font));
    config.writeEntry(fontNameKey(), font.family());
}

} // namespace

PreferencesData::PreferencesData()
    : _font(globalFontName(), globalFontSize)
{
    load();
}

PreferencesData::~PreferencesData()
{
    save();
}

void PreferencesData::load()
{
    Config config(configName(), Config::User);
    config.setGroup(viewGroup());
    _layout = static_cast<PanelViewLayout>(config.readNumEntry(u"PanelView"_s, 1));
    _userHandType = static_cast<UserHandType>(config.readNumEntry(u"UserHandType"_s, 0));
    const int size = config.readNumEntry(fontSizeKey(), globalFontSize);
    const QString family = config.readEntry(fontNameKey(), globalFontName());
    _viewType = static_cast<ViewType>(config.readNumEntry(u"ViewType"_s, 1));
    _findType = static_cast<FindType>(config.readNumEntry(u"FindType"_s, 0));
    applyFont(_font, size, family);
    _lastOpenFile = config.readEntry(u"LastOpenFile"_s);
    _comboPosition = static_cast<Position>(config.readNumEntry(u"ComboPosition"_s, 0));
    _menuPosition = static_cast<Position>(config.readNumEntry(u"MenuPosition"_s, 0));

    _mruList.clear();
    config.setGroup(mruGroup());
    for (int number = 0; number < mruLimit; ++number) {
        const QByteArray word = toBytes(config.readEntry(mruKey(number)));
        if (!word.isEmpty())
            _mruList.append(word);
    }
}

bool PreferencesData::save()
{
    Config config(configName(), Config::User);
    config.setGroup(viewGroup());
    config.writeEntry(u"PanelView"_s, static_cast<int>(_layout));
    config.writeEntry(u"UserHandType"_s, static_cast<int>(_userHandType));
    writeFont(config, _font);
    config.writeEntry(u"ViewType"_s, static_cast<int>(_viewType));
    config.writeEntry(u"FindType"_s, static_cast<int>(_findType));
    config.writeEntry(u"LastOpenFile"_s, _lastOpenFile);
    config.writeEntry(u"ComboPosition"_s, static_cast<int>(_comboPosition));
    config.writeEntry(u"MenuPosition"_s, static_cast<int>(_menuPosition));

    config.setGroup(mruGroup());
    for (qsizetype number = 0; number < _mruList.size(); ++number)
        config.writeEntry(mruKey(number), QString::fromLatin1(_mruList.at(number)));
    for (auto font = _unsavedFonts.cbegin(); font != _unsavedFonts.cend(); ++font)
        writeDictionaryFont(config, font.value(), font.key());
    FontGroups(config).makeRoom();
    if (!config.write())
        return false;
    _unsavedFonts.clear();
    return true;
}

QFont PreferencesData::getFont(const QString& group)
{
    Config config(configName(), Config::User);
    config.setGroup(group);
    QFont font = _defaultFont;
    const int size = config.readNumEntry(fontSizeKey(), pointSizeOf(font));
    const QString family = config.readEntry(fontNameKey(), font.family());
    applyFont(font, size, family);
    FontGroups(config).makeRoom(group);
    if (const auto unsaved = _unsavedFonts.constFind(group); unsaved != _unsavedFonts.cend())
        applyFont(font, pointSizeOf(*unsaved), unsaved->family());
    set(_font, font);
    return font;
}

void PreferencesData::setFont(const QFont& font, const QString& group)
{
    Config config(configName(), Config::User);
    writeDictionaryFont(config, font, group);
    FontGroups(config).makeRoom(group);
    if (config.write()) {
        _unsavedFonts.remove(group);
        return;
    }
    _unsavedFonts.insert(group, font);
    tellChange();
}

void PreferencesData::writeDictionaryFont(Config& config, const QFont& font, const QString& group)
{
    config.setGroup(group);
    writeFont(config, font);
    if (!group.isEmpty())
        FontGroups(config).markStored(group);
}

void PreferencesData::addToMRUList(const QString& word)
{
    const QByteArray bytes = toBytes(word);
    if (_mruList.contains(bytes))
        return;
    if (_mruList.size() >= mruLimit) {
        _mruList.prepend(bytes);
        _mruList.removeLast();
    } else {
        _mruList.append(bytes);
    }
    tellChange();
}

void PreferencesData::tellChange() const
{
    if (_changeHandler)
        _changeHandler();
}

void PreferencesData::fillMRUList(QByteArrayList& list) const
{
    list = _mruList;
}
