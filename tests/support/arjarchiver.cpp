// SPDX-License-Identifier: MIT
#include "tests/support/arjarchiver.h"

#include "tests/support/childprocess.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{
constexpr qsizetype checksumSize = 4;

qsizetype wordAt(const QByteArray& bytes, qsizetype offset)
{
    return offset + 2 <= bytes.size() ? qFromLittleEndian<quint16>(bytes.constData() + offset) : 0;
}
} // namespace

bool hasArj()
{
    return !QStandardPaths::findExecutable(u"arj"_s).isEmpty();
}

QByteArray memberOfArchive(const QByteArray& archive)
{
    const QByteArray endMark = QByteArray::fromHex("60ea0000");
    if (!archive.startsWith(endMark.left(2)) || !archive.endsWith(endMark))
        return {};
    qsizetype start = 4 + wordAt(archive, 2) + checksumSize;
    while (const qsizetype extended = wordAt(archive, start))
        start += 2 + extended + checksumSize;
    start += 2;
    return archive.mid(start, archive.size() - start - endMark.size());
}

QByteArray packWithArj(const QByteArray& original, int method, QString& error)
{
    const QTemporaryDir directory;
    if (!directory.isValid() || !writeFile(directory.filePath(u"r"_s), original)) {
        error = u"no temporary directory"_s;
        return {};
    }
    QProcess arj;
    arj.setWorkingDirectory(directory.path());
    arj.setProcessChannelMode(QProcess::MergedChannels);
    const ProgramResult result =
        runToEnd(arj, u"arj"_s, {u"a"_s, u"-y"_s, u"-m%1"_s.arg(method), u"out.arj"_s, u"r"_s});
    if (result.code != 0) {
        error = QString::fromLocal8Bit(result.out) + arj.errorString();
        return {};
    }
    QFile archive(directory.filePath(u"out.arj"_s));
    if (!archive.open(QIODevice::ReadOnly)) {
        error = archive.errorString();
        return {};
    }
    QByteArray member = memberOfArchive(archive.readAll());
    if (member.isEmpty())
        error = u"not an archive of the expected shape"_s;
    return member;
}

} // namespace teskel::test
