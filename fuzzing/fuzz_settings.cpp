// SPDX-License-Identifier: MIT
// Any bytes as the reader's settings file: loaded, changed and saved as a run of the reader does.
#include "fuzzing/fuzzapplication.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "settings/preferences.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace teskel::fuzz;

namespace
{
constexpr qsizetype mostWords = 6;

void checkHistory(const PreferencesData& preferences)
{
    QByteArrayList words;
    preferences.fillMRUList(words);
    require(words.size() <= mostWords);
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ScratchFolder folder;
    startApplication();
    qputenv("XDG_CONFIG_HOME", folder.path(u""_s).toUtf8());
    QDir().mkpath(folder.path(u"teskel"_s));
    folder.write(u"teskel/Teskel.conf"_s,
                 QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    {
        PreferencesData preferences;
        checkHistory(preferences);
        preferences.getFont(preferences.getLastOpenFile());
        preferences.addToMRUList(u"fuzz"_s);
        checkHistory(preferences);
        preferences.setComboPosition(PreferencesData::Bottom);
        preferences.setLastOpenFile(u"/a/b"_s);
    }
    const PreferencesData again;
    require(again.getComboPosition() == PreferencesData::Bottom);
    require(again.getLastOpenFile() == u"/a/b"_s);
    QByteArrayList words;
    again.fillMRUList(words);
    require(words.contains("fuzz"));
    return 0;
}
