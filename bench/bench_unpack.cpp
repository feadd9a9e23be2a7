// SPDX-License-Identifier: MIT
// Tests an ARJ archive as `7z t` does: reads the file, unpacks every member, checks every checksum.
#include "bench/support/members.h"
#include "dictionary/unpacking/decode.h"

#include <QFile>
#include <QTextStream>

int main(int argc, char* argv[])
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: bench_unpack ARCHIVE\n";
        return 2;
    }
    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << argv[1] << ": cannot be read\n";
        return 2;
    }
    const QByteArrayList members = teskel::bench::membersOfArchive(file.readAll());
    qint64 bytes = 0;
    for (const QByteArray& member : members) {
        teskel::MemberBlock block;
        const auto status = teskel::decodeMember(member.constData(),
                                                 static_cast<std::size_t>(member.size()), block);
        if (status != teskel::MemberStatus::Ok) {
            QTextStream(stderr) << teskel::memberStatusText(status) << '\n';
            return 1;
        }
        bytes += block.size;
    }
    QTextStream(stdout) << members.size() << " members, " << bytes << " bytes\n";
    return members.isEmpty() ? 1 : 0;
}
