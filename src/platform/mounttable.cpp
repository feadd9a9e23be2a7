// SPDX-License-Identifier: MIT
#include "platform/mounttable.h"

#include <QHash>
#include <optional>

namespace teskel
{

namespace
{

bool isOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

// Blanks, tabs, line feeds, backslashes and "#" stand in the table as a backslash and three octal
// digits.
QString field(const QByteArray& raw)
{
    QByteArray text;
    text.reserve(raw.size());
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == '\\' && i + 3 < raw.size() && isOctalDigit(raw[i + 1]) &&
            isOctalDigit(raw[i + 2]) && isOctalDigit(raw[i + 3])) {
            const int code = (raw[i + 1] - '0') * 64 + (raw[i + 2] - '0') * 8 + (raw[i + 3] - '0');
            text += static_cast<char>(code & 0xFF);
            i += 3;
        } else {
            text += raw[i];
        }
    }
    return QString::fromUtf8(text);
}

std::optional<Mount> parseLine(const QByteArray& line)
{
    // id parent device root path options tag... - type source options
    const QList<QByteArray> fields = line.split(' ');
    const qsizetype separator = fields.indexOf("-", 6);
    if (separator < 0 || separator + 2 >= fields.size())
        return std::nullopt;
    return Mount{field(fields[2]), field(fields[3]), field(fields[4]), field(fields[separator + 1]),
                 field(fields[separator + 2])};
}

} // namespace

QList<Mount> parseMountTable(const QByteArray& table)
{
    QList<Mount> mounts;
    const QList<QByteArray> lines = table.split('\n');
    for (const QByteArray& line : lines) {
        if (std::optional<Mount> mount = parseLine(line))
            mounts.append(*std::move(mount));
    }
    return mounts;
}

QList<Mount> visibleMounts(const QList<Mount>& mounts)
{
    QHash<QString, qsizetype> last;
    for (qsizetype i = 0; i < mounts.size(); ++i)
        last[mounts[i].path] = i;
    QList<Mount> visible;
    for (qsizetype i = 0; i < mounts.size(); ++i) {
        if (last.value(mounts[i].path) == i)
            visible.append(mounts[i]);
    }
    return visible;
}

} // namespace teskel
