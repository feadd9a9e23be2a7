// SPDX-License-Identifier: MIT
// Any bytes as a member, and any bytes as the packed stream behind a good header.
#include "dictionary/unpacking/decode.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "tests/support/arjmember.h"

#include <cstdlib>
#include <memory>

using namespace teskel::fuzz;

namespace
{
void unpackMember(QByteArray member)
{
    const std::unique_ptr<void, teskel::FreeDeleter> block(
        DecompressBuffer(member.data(), member.size()));
    teskel::MemberBlock sized;
    const auto status =
        teskel::decodeMember(member.constData(), static_cast<std::size_t>(member.size()), sized, 3);
    require((block != nullptr) == (status == teskel::MemberStatus::Ok));
    if (!block)
        return;
    require(QByteArray(static_cast<char*>(block.get()), sized.size) ==
            QByteArray(sized.data.get(), sized.size));
    // On the heap to the byte, so that the sanitizer sees a write past the end.
    const auto target = std::make_unique<char[]>(sized.size);
    require(DecompressBuffer(target.get(), long{sized.size}, member.data(), member.size()));
}

// The first three bytes choose method and size.
void unpackStream(const QByteArray& bytes)
{
    if (bytes.size() < 3)
        return;
    teskel::test::ArjMember member;
    member.method = static_cast<quint8>(bytes.at(0) & 3) + 1;
    member.uncompressedSize =
        (static_cast<quint8>(bytes.at(1)) << 8 | static_cast<quint8>(bytes.at(2))) & 0x7FFF;
    member.compressedSize = static_cast<quint32>(bytes.size() - 3);
    QByteArray whole = member.header() + bytes.mid(3);
    const auto target = std::make_unique<char[]>(member.uncompressedSize);
    DecompressBuffer(target.get(), long{member.uncompressedSize}, whole.data(), whole.size());
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    unpackMember(bytes);
    unpackStream(bytes);
    return 0;
}
