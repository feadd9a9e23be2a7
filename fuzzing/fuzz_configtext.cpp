// SPDX-License-Identifier: MIT
// Any bytes as the text of a settings file, read, changed and read again.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "platform/configtext.h"

using namespace Qt::StringLiterals;
using namespace teskel::fuzz;
using teskel::ConfigText;

namespace
{
// Written out and read back, a text says the same.
void requireStable(const ConfigText& text, const QString& group, const QString& key)
{
    const QByteArray bytes = text.toUtf8();
    const ConfigText again(bytes);
    require(again.toUtf8() == bytes);
    require(again.hasGroup(group) == text.hasGroup(group));
    require(again.value(group, key) == text.value(group, key));
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QByteArrayList lines = bytes.split('\n');
    ConfigText text(bytes);
    // Names and a value out of the text itself, as the fuzzer likes them.
    const QString group = ConfigText::groupName(QString::fromUtf8(lines.first()));
    const QString key = ConfigText::keyName(QString::fromUtf8(lines.last()));
    const QString value = ConfigText::valueText(QString::fromUtf8(bytes.right(20)));
    requireStable(text, group, key);
    requireStable(text, u"Global"_s, u"MRUWord1"_s);

    text.setValue(group, key, value);
    require(text.value(group, key) == value && !text.setValue(group, key, value));
    requireStable(text, group, key);
    require(text.removeKey(group, key) && !text.value(group, key));
    requireStable(text, group, key);
    text.addGroup(u"Global"_s);
    text.setValue(u"Global"_s, u"MRUWord1"_s, value);
    require(text.clearGroup(u"Global"_s) && text.hasGroup(u"Global"_s));
    requireStable(text, u"Global"_s, u"MRUWord1"_s);
    return 0;
}
