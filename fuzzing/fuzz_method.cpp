// SPDX-License-Identifier: MIT
// Any bytes as a stream packed by one method, TESKEL_FUZZ_METHOD: first under a header whose
// checksum cannot hold, then, as a fuzzer does not guess checksums, under one with that of what
// came out.
#include "dictionary/unpacking/decode.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "tests/support/arjmember.h"

#include <QtEndian>

using namespace teskel::fuzz;
using teskel::MemberStatus;
using teskel::test::ArjMember;

namespace
{
constexpr qsizetype headSize = 2;
constexpr quint16 largeMark = 0x8000; // else the member is a small one, which is quick
constexpr quint16 largeMask = 0x7FFF;
constexpr quint16 smallMask = 0x01FF;

// What comes out, the checksum left aside.
QByteArray decoded(const QByteArray& member, MemberStatus& status)
{
    CBuffer input;
    input.OpenMemory(member.constData(), static_cast<long>(member.size()), CBuffer::Read_Mode);
    CFileHeader header(&input);
    require(header.isValid());
    QByteArray out(static_cast<qsizetype>(header.uncompressedSize()), Qt::Uninitialized);
    CBuffer output;
    output.OpenMemory(out.data(), static_cast<long>(out.size()), CBuffer::Write_Mode);
    CDecoder decoder;
    decoder.Decompress(&header, &input, &output);
    status = decoder.status();
    require(output.Tell() >= 0 && output.Tell() <= out.size());
    return out.left(output.Tell());
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.size() < headSize)
        return 0;
    const auto head = qFromBigEndian<quint16>(bytes.constData());
    const QByteArray stream = bytes.mid(headSize);
    ArjMember member;
    member.method = TESKEL_FUZZ_METHOD;
    member.uncompressedSize = head & ((head & largeMark) != 0 ? largeMask : smallMask);
    member.compressedSize = static_cast<quint32>(stream.size());
    MemberStatus status = MemberStatus::Ok;
    const QByteArray out = decoded(member.header() + stream, status);

    member.crc = teskel::test::checksum(out);
    const QByteArray good = member.header() + stream;
    teskel::MemberBlock block;
    const MemberStatus goodStatus =
        teskel::decodeMember(good.constData(), static_cast<std::size_t>(good.size()), block);
    if (status == MemberStatus::BadCodes)
        require(goodStatus == MemberStatus::BadCodes && !block.data);
    else
        require(goodStatus == MemberStatus::Ok && block.size == member.uncompressedSize &&
                QByteArrayView(block.data.get(), out.size()) == out);
    return 0;
}
