// SPDX-License-Identifier: MIT
#include "tests/dictionary/decodercomparison.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cdecoder.h"
#include "dictionary/unpacking/cfileheader.h"
#include "tests/support/arjmember.h"
#include "tests/support/plaindecoder.h"
#include "tests/support/warningcapture.h"

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace teskel::test
{

namespace
{
template<typename Value>
QString difference(const char* what, Value ours, Value plain)
{
    return ours == plain ? QString()
                         : u"%1: %2 instead of %3"_s.arg(QLatin1String(what)).arg(ours).arg(plain);
}
} // namespace

QString differenceFromPlain(const PackedStream& stream)
{
    const int capacity = qMin(stream.size, stream.room);
    const PlainResult plain =
        decodePlainly(stream.method, stream.bytes, stream.claimedSize, capacity);
    ArjMember member;
    member.method = static_cast<quint8>(stream.method);
    member.compressedSize = stream.claimedSize;
    member.uncompressedSize = static_cast<quint32>(stream.size);
    member.crc = checksum(plain.output);
    const QByteArray headerBytes = member.header();
    const QByteArray bytes = headerBytes + stream.bytes;

    // Both on the heap to the byte, so that a sanitizer sees what goes beyond them.
    const auto inputSize = static_cast<std::size_t>(bytes.size());
    const auto source = std::make_unique<char[]>(inputSize);
    std::memcpy(source.get(), bytes.constData(), inputSize);
    CBuffer input;
    input.OpenMemory(source.get(), static_cast<long>(inputSize), CBuffer::Read_Mode);
    CFileHeader header(&input);
    const auto target = std::make_unique<char[]>(static_cast<std::size_t>(stream.room));
    CBuffer output;
    output.OpenMemory(target.get(), stream.room, CBuffer::Write_Mode);
    CDecoder decoder;
    const WarningCapture warnings;
    const bool isGood = decoder.Decompress(&header, &input, &output);

    const auto expectedStatus = plain.hasGoodTables ? MemberStatus::Ok : MemberStatus::BadCodes;
    const quint64 fetched = qMin<quint64>(2 + (plain.bitsRead + 7) / 8, stream.claimedSize);
    const auto taken = qMin(static_cast<qint64>(fetched), qint64{stream.bytes.size()});
    const QString place = stream.method == 4 ? u"decode.cpp (469)"_s : u"decode.cpp (335)"_s;
    const QString differences[] = {
        difference("result", int{isGood}, int{plain.hasGoodTables}),
        difference("status", static_cast<int>(decoder.status()), static_cast<int>(expectedStatus)),
        difference("length", qint64{output.Tell()}, qint64{plain.output.size()}),
        difference("warnings", qint64{warnings.messages().size()}, qint64{plain.wraps}),
        difference("warnings of the place", qint64{warnings.count(place)}, qint64{plain.wraps}),
        difference("bytes left", quint64{header.compressedSize()}, stream.claimedSize - fetched),
        difference("input", qint64{input.Tell()}, headerBytes.size() + taken),
    };
    for (const QString& found : differences) {
        if (!found.isEmpty())
            return found;
    }
    const QByteArray unpacked(target.get(), output.Tell());
    return unpacked == plain.output ? QString() : u"the bytes differ"_s;
}

} // namespace teskel::test
