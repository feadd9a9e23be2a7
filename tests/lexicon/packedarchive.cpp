// SPDX-License-Identifier: MIT
#include "tests/lexicon/packedarchive.h"

#include "tests/support/childprocess.h"

#include <QProcess>
#include <QtEndian>

#include <zlib.h>

namespace teskel::test
{

namespace
{

constexpr qsizetype sizeOffset = 2; // of the basic header's size
constexpr qsizetype basicOffset = 4;
constexpr qsizetype fixedBytes = 30; // of the basic header, before the name
constexpr qsizetype checksumBytes = 4;

QByteArray number(quint32 value, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(static_cast<quint8>(value >> (8 * i)));
    return result;
}

/// Header id, size, basic header, checksum.
QByteArray framed(const QByteArray& basic)
{
    const auto checksum = static_cast<quint32>(::crc32(
        0, reinterpret_cast<const Bytef*>(basic.constData()), static_cast<uInt>(basic.size())));
    return QByteArray::fromHex("60ea") + number(static_cast<quint32>(basic.size()), 2) + basic +
           number(checksum, checksumBytes);
}

QByteArray renamed(const QByteArray& member, const QByteArray& name)
{
    const auto size = qFromLittleEndian<quint16>(member.constData() + sizeOffset);
    return framed(member.mid(basicOffset, fixedBytes) + name + QByteArray(2, '\0')) +
           member.mid(basicOffset + size + checksumBytes);
}

} // namespace

QByteArray archiveOf(const QByteArrayList& members)
{
    QByteArray archive = framed(QByteArray::fromHex("1e030102000202000000210000002100") +
                                QByteArray(14, '\0') + QByteArray("r.arj\0\0", 7)) +
                         number(0, 2);
    for (qsizetype index = 0; index < members.size(); ++index)
        archive += renamed(members.at(index), QByteArray::number(index));
    return archive + QByteArray::fromHex("60ea0000");
}

int runArchiver(const QString& program, const QStringList& arguments, const QString& directory)
{
    QProcess process;
    process.setWorkingDirectory(directory);
    process.setProcessChannelMode(QProcess::MergedChannels);
    const ProgramResult result = runToEnd(process, program, arguments);
    if (result.code != 0)
        qInfo("%s", result.out.constData());
    return result.code;
}

} // namespace teskel::test
