// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"
#include "tests/support/arjmember.h"
#include "tests/support/damage/damagerule.h"

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

constexpr qsizetype crcPlace = 24;
constexpr int headerBytes = 42;
constexpr int largestSize = 32767;

// A text that packs to what the method has to offer: literals, near and far matches.
QByteArray wideText(Random& random)
{
    QByteArray text = DictionaryWriter::recordText({{"Haus", "house"}});
    text.chop(1);
    for (int word = 0; word < 900; ++word)
        text += "w" + QByteArray::number(random.bounded(300) + 1000) + '\0' +
                QByteArray(random.bounded(1, 20), static_cast<char>('a' + word % 26)) + '\0';
    return text;
}

QByteArray memberOf(Draft& draft, Random& random, int method)
{
    draft.method = method;
    return draft.packed(wideText(random));
}

// Says of what comes out that it is what went in: damage that no checksum shows.
QByteArray withItsChecksum(const QByteArray& member)
{
    CBuffer input;
    input.OpenMemory(member.constData(), static_cast<long>(member.size()), CBuffer::Read_Mode);
    CFileHeader header(&input);
    QByteArray text(largestSize, '\0');
    CBuffer output;
    output.OpenMemory(text.data(), static_cast<long>(header.uncompressedSize()),
                      CBuffer::Write_Mode);
    CDecoder decoder;
    decoder.Decompress(&header, &input, &output);
    return patched(member, crcPlace, littleEndian32(checksum(text.left(output.Tell()))));
}

QByteArray withFlippedBits(QByteArray member, Random& random)
{
    for (int times = random.bounded(1, 6); times > 0; --times) {
        const int at = random.bounded(headerBytes, static_cast<int>(member.size()));
        member[at] = static_cast<char>(member.at(at) ^ 1 << random.bounded(8));
    }
    return member;
}

template<int method>
QByteArray flipped(Draft& draft, Random& random)
{
    return draft.fileWithMember(withFlippedBits(memberOf(draft, random, method), random), random);
}

template<int method>
QByteArray flippedUnseen(Draft& draft, Random& random)
{
    const QByteArray member = withFlippedBits(memberOf(draft, random, method), random);
    return draft.fileWithMember(withItsChecksum(member), random);
}

template<int method>
QByteArray noise(Draft& draft, Random& random)
{
    const QByteArray packed = randomBytes(random.bounded(1, 3000), random);
    ArjMember member;
    member.method = method;
    member.compressedSize = static_cast<quint32>(packed.size());
    member.uncompressedSize = static_cast<quint32>(random.bounded(largestSize + 1));
    return draft.fileWithMember(withItsChecksum(member.header() + packed), random);
}

QByteArray allOf(Draft& draft, Random& random, char byte)
{
    ArjMember member;
    member.method = static_cast<quint8>(draft.method);
    const QByteArray packed(random.bounded(1, 2000), byte);
    member.compressedSize = static_cast<quint32>(packed.size());
    member.uncompressedSize = largestSize;
    return draft.fileWithMember(withItsChecksum(member.header() + packed), random);
}

QByteArray withCutStream(Draft& draft, Random& random)
{
    QByteArray member = memberOf(draft, random, draft.method);
    member.truncate(random.bounded(headerBytes, static_cast<int>(member.size())));
    return draft.fileWithMember(withItsChecksum(member), random);
}

const DamageRule rules[] = {
    {"stream of method 1 flipped", flipped<1>},
    {"stream of method 2 flipped", flipped<2>},
    {"stream of method 3 flipped", flipped<3>},
    {"stream of method 4 flipped", flipped<4>},
    {"stream of method 1 flipped unseen", flippedUnseen<1>},
    {"stream of method 2 flipped unseen", flippedUnseen<2>},
    {"stream of method 3 flipped unseen", flippedUnseen<3>},
    {"stream of method 4 flipped unseen", flippedUnseen<4>},
    {"noise by method 1", noise<1>},
    {"noise by method 4", noise<4>},
    {"stream of zeros", [](Draft& d, Random& r) { return allOf(d, r, '\0'); }},
    {"stream of ones", [](Draft& d, Random& r) { return allOf(d, r, '\xFF'); }},
    {"stream cut short", withCutStream},
};
} // namespace

std::span<const DamageRule> streamDamage()
{
    return rules;
}

} // namespace teskel::test
