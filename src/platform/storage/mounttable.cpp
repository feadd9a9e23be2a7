// SPDX-License-Identifier: MIT
#include "platform/storage/mounttable.h"

#include <QHash>

#include <optional>
#include <utility>

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
    return Mount{fields[0].toInt(),
                 fields[1].toInt(),
                 field(fields[2]),
                 field(fields[3]),
                 field(fields[4]),
                 field(fields[separator + 1]),
                 field(fields[separator + 2])};
}

// A table with mounts in mounts deeper than this is a damaged one.
constexpr int deepestMount = 64;

/// Which mounts of a table stand on which directories of others.
class MountTree
{
public:
    explicit MountTree(const QList<Mount>& mounts)
        : _mounts(mounts)
    {
        for (qsizetype i = 0; i < mounts.size(); ++i) {
            _byId[mounts[i].id] = i;
            _byPlace[{mounts[i].parent, mounts[i].path}] = i;
        }
    }

    // The order of the table says nothing here: mounts can be moved.
    bool isVisible(qsizetype index) const
    {
        const Mount& target = _mounts[index];
        if (const qsizetype top = at(target.id, target.path);
            target.path != root && top >= 0 && top != index)
            return false;
        for (int depth = 0; depth < deepestMount && index >= 0; ++depth) {
            if (isHiddenBesideOthers(index))
                return false;
            index = _byId.value(_mounts[index].parent, -1);
        }
        return true;
    }

private:
    // A process keeps its root directory: what is mounted there later is out of its sight.
    static constexpr QLatin1String root{"/"};

    qsizetype at(int parent, const QString& path) const
    {
        return _byPlace.value({parent, path}, -1);
    }

    // Whether another mount in the same one stands on the mount point or above.
    bool isHiddenBesideOthers(qsizetype index) const
    {
        const Mount& mount = _mounts[index];
        if (mount.path == root)
            return _byId.contains(mount.parent);
        if (at(mount.parent, mount.path) != index)
            return true;
        QString path = mount.path;
        for (qsizetype end = path.lastIndexOf(u'/'); end > 0; end = path.lastIndexOf(u'/')) {
            path.truncate(end);
            if (at(mount.parent, path) >= 0)
                return true;
        }
        return false;
    }

    const QList<Mount>& _mounts;
    QHash<int, qsizetype> _byId;
    QHash<std::pair<int, QString>, qsizetype> _byPlace;
};

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
    const MountTree tree(mounts);
    QList<Mount> visible;
    for (qsizetype i = 0; i < mounts.size(); ++i) {
        if (tree.isVisible(i))
            visible.append(mounts[i]);
    }
    return visible;
}

} // namespace teskel
