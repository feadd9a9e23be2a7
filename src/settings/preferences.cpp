// SPDX-License-Identifier: MIT
#include "settings/preferences.h"

#include "platform/config.h"
#include "settings/fontgroups.h"
#include "settings/fontkeys.h"

#include <QFontInfo>

#include <utility>

using namespace Qt::StringLiterals;

using teskel::FontGroups;
using teskel::fontNameKey;
using teskel::fontSizeKey;

namespace
{

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

QList<std::pair<QString, QString>> entriesOf(const QFont& font)
{
    return {{fontSizeKey(), QString::number(pointSizeOf(font))}, {fontNameKey(), font.family()}};
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

    const auto entries = ownEntries();
    for (const auto& [key, value] : entries)
        _seen.note(config, viewGroup(), key, value);
    config.setGroup(mruGroup());
    _history.load(config);
}

QList<std::pair<QString, QString>> PreferencesData::ownEntries() const
{
    const auto number = [](int value) { return QString::number(value); };
    QList<std::pair<QString, QString>> entries{{u"PanelView"_s, number(_layout)},
                                               {u"UserHandType"_s, number(_userHandType)}};
    entries += entriesOf(_font);
    entries += {{u"ViewType"_s, number(_viewType)},
                {u"FindType"_s, number(_findType)},
                {u"LastOpenFile"_s, _lastOpenFile},
                {u"ComboPosition"_s, number(_comboPosition)},
                {u"MenuPosition"_s, number(_menuPosition)}};
    return entries;
}

bool PreferencesData::save()
{
    Config config(configName(), Config::User);
    config.setGroup(viewGroup());
    const auto entries = ownEntries();
    for (const auto& [key, value] : entries)
        _seen.write(config, viewGroup(), key, value);
    for (auto font = _unsavedFonts.cbegin(); font != _unsavedFonts.cend(); ++font)
        writeDictionaryFont(config, font.value(), font.key());
    FontGroups(config).makeRoom();
    config.setGroup(mruGroup());
    _history.write(config);
    const bool isWritten = config.write();
    _seen.settle(isWritten);
    if (!isWritten)
        return false;
    _history.settle(config);
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
    auto entries = entriesOf(font);
    for (const auto& [key, value] : std::as_const(entries))
        _seen.note(config, group, key, value);
    FontGroups(config).makeRoom(group);
    if (const auto unsaved = _unsavedFonts.constFind(group); unsaved != _unsavedFonts.cend())
        applyFont(font, pointSizeOf(*unsaved), unsaved->family());
    entries = entriesOf(font);
    for (const auto& [key, value] : std::as_const(entries))
        _seen.follow(viewGroup(), key, value);
    set(_font, font);
    return font;
}

void PreferencesData::setFont(const QFont& font, const QString& group)
{
    Config config(configName(), Config::User);
    writeDictionaryFont(config, font, group);
    FontGroups(config).makeRoom(group);
    const bool isWritten = config.write();
    _seen.settle(isWritten);
    if (isWritten) {
        _unsavedFonts.remove(group);
        return;
    }
    _unsavedFonts.insert(group, font);
    tellChange();
}

void PreferencesData::writeDictionaryFont(Config& config, const QFont& font, const QString& group)
{
    config.setGroup(group);
    const auto entries = entriesOf(font);
    for (const auto& [key, value] : entries)
        _seen.write(config, group, key, value);
    if (!group.isEmpty())
        FontGroups(config).markStored(group);
}

void PreferencesData::addToMRUList(const QString& word)
{
    if (_history.add(word))
        tellChange();
}

void PreferencesData::tellChange() const
{
    if (_changeHandler)
        _changeHandler();
}
