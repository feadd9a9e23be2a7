// SPDX-License-Identifier: MIT
#include "platform/configtext.h"

#include <algorithm>
#include <utility>

namespace teskel
{

namespace
{

constexpr QByteArrayView byteOrderMark("\xEF\xBB\xBF");

bool isComment(QStringView line)
{
    return line.startsWith(u'#') || line.startsWith(u';');
}

} // namespace

ConfigText::ConfigText(const QByteArray& text)
{
    if (text.startsWith(byteOrderMark))
        _mark = text.first(byteOrderMark.size());
    if (const qsizetype first = text.indexOf('\n'); first > 0 && text.at(first - 1) == '\r')
        _lineBreak = QByteArrayLiteral("\r\n");

    const QByteArrayView whole(text);
    std::optional<QString> group;
    QSet<QString> keys;
    for (qsizetype begin = _mark.size(); begin < text.size();) {
        const qsizetype end = text.indexOf('\n', begin);
        if (end < 0) {
            append(text.sliced(begin) + _lineBreak, group, keys);
            break;
        }
        append(whole.sliced(begin, end + 1 - begin), group, keys);
        begin = end + 1;
    }
}

// `group` is the one that entries belong to at this place, if any; `keys` holds those that were
// met, since a large file has the same few everywhere.
void ConfigText::append(QByteArrayView bytes, std::optional<QString>& group, QSet<QString>& keys)
{
    const QString decoded = QString::fromUtf8(bytes);
    const QStringView text = QStringView(decoded).trimmed();
    const qsizetype equals = text.indexOf(u'=');
    Line line;
    if (text.startsWith(u'[')) {
        group.reset();
        if (text.size() > 1 && text.endsWith(u']')) {
            group = text.sliced(1, text.size() - 2).toString();
            line.kind = Line::Group;
        }
    } else if (group && equals >= 0 && !isComment(text)) {
        line.kind = Line::Entry;
        line.key = *keys.insert(text.first(equals).trimmed().toString());
        line.value = text.sliced(equals + 1).trimmed().toString();
    }
    if (line.kind == Line::Other && !_lines.isEmpty() && _lines.constLast().kind == Line::Other) {
        _lines.last().bytes += bytes;
        return;
    }
    line.bytes = bytes.toByteArray();
    line.group = group.value_or(QString());
    _lines.append(std::move(line));
}

QByteArray ConfigText::toUtf8() const
{
    QByteArray text = _mark;
    for (const Line& line : _lines)
        text += line.bytes;
    return text;
}

qsizetype ConfigText::lastIndexOf(Line::Kind kind, const QString& group, const QString& key) const
{
    for (qsizetype i = _lines.size() - 1; i >= 0; --i) {
        const Line& line = _lines.at(i);
        if (line.kind == kind && line.group == group && line.key == key)
            return i;
    }
    return -1;
}

qsizetype ConfigText::placeOfGroup(const QString& group) const
{
    const auto isGroup = [](const Line& line) { return line.kind == Line::Group; };
    const auto isLater = [&](const Line& line) { return isGroup(line) && line.group > group; };
    const auto first = std::find_if(_lines.cbegin(), _lines.cend(), isGroup);
    auto place = std::find_if(first, _lines.cend(), isLater);
    // The head of the file stays its head.
    if (place != _lines.cend() && place != first) {
        while (std::prev(place)->kind == Line::Other)
            --place;
    }
    return std::distance(_lines.cbegin(), place);
}

qsizetype ConfigText::placeOfKey(const QString& group, const QString& key) const
{
    qsizetype place = lastIndexOf(Line::Group, group, {}) + 1;
    for (qsizetype i = place; i < _lines.size() && _lines.at(i).kind != Line::Group; ++i) {
        if (_lines.at(i).kind == Line::Entry && _lines.at(i).key < key)
            place = i + 1;
    }
    return place;
}

ConfigText::Line ConfigText::groupLine(const QString& group) const
{
    return {Line::Group, '[' + group.toUtf8() + ']' + _lineBreak, group, {}, {}};
}

ConfigText::Line ConfigText::entryLine(const QString& group, const QString& key,
                                       const QString& value) const
{
    return {Line::Entry, key.toUtf8() + " = " + value.toUtf8() + _lineBreak, group, key, value};
}

bool ConfigText::hasGroup(const QString& group) const
{
    return lastIndexOf(Line::Group, group, {}) >= 0;
}

void ConfigText::addGroup(const QString& group)
{
    if (!hasGroup(group))
        _lines.insert(placeOfGroup(group), groupLine(group));
}

std::optional<QString> ConfigText::value(const QString& group, const QString& key) const
{
    const qsizetype found = lastIndexOf(Line::Entry, group, key);
    return found < 0 ? std::nullopt : std::optional(_lines.at(found).value);
}

bool ConfigText::setValue(const QString& group, const QString& key, const QString& value)
{
    const qsizetype found = lastIndexOf(Line::Entry, group, key);
    if (found >= 0) {
        if (_lines.at(found).value == value)
            return false;
        _lines[found] = entryLine(group, key, value);
        return true;
    }
    addGroup(group);
    _lines.insert(placeOfKey(group, key), entryLine(group, key, value));
    return true;
}

bool ConfigText::removeKey(const QString& group, const QString& key)
{
    return _lines.removeIf([&](const Line& line) {
        return line.kind == Line::Entry && line.key == key && line.group == group;
    }) > 0;
}

bool ConfigText::clearGroup(const QString& group)
{
    return _lines.removeIf([&](const Line& line) {
        return line.kind == Line::Entry && line.group == group;
    }) > 0;
}

QList<ConfigText::Group> ConfigText::groups() const
{
    QList<Group> groups;
    QHash<QString, qsizetype> places;
    for (const Line& line : _lines) {
        if (line.kind == Line::Other)
            continue;
        auto place = places.constFind(line.group);
        if (place == places.constEnd()) {
            place = places.insert(line.group, groups.size());
            groups.append({line.group, {}});
        }
        if (line.kind == Line::Entry)
            groups[*place].values.insert(line.key, line.value);
    }
    return groups;
}

bool ConfigText::removeFromGroups(const QSet<QString>& groups, const QStringList& keys)
{
    const qsizetype before = _lines.size();
    _lines.removeIf([&](const Line& line) {
        return line.kind == Line::Entry && keys.contains(line.key) && groups.contains(line.group);
    });
    QSet<QString> inUse;
    for (const Line& line : std::as_const(_lines)) {
        if (line.kind == Line::Entry && groups.contains(line.group))
            inUse.insert(line.group);
    }
    _lines.removeIf([&](const Line& line) {
        return line.kind == Line::Group && groups.contains(line.group) &&
               !inUse.contains(line.group);
    });
    return _lines.size() != before;
}

QString ConfigText::groupName(QString name)
{
    return name.replace(u'\n', u' ');
}

QString ConfigText::keyName(QString key)
{
    // A byte-order mark at the beginning of a line would be skipped when the line is read.
    key.replace(u'\n', u' ').replace(u'=', u'_').replace(u'[', u'_');
    key = key.replace(QChar(QChar::ByteOrderMark), u'_').trimmed();
    if (isComment(key))
        key[0] = u'_';
    return key;
}

QString ConfigText::valueText(QString value)
{
    return value.replace(u'\n', u' ').trimmed();
}

} // namespace teskel
