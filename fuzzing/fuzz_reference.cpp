// SPDX-License-Identifier: MIT
// The reader's decoder against the plain one. The first eight bytes choose method, sizes and where
// the stream comes from: the bytes that follow, or a generator of good streams, which they change.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "tests/dictionary/decodercomparison.h"
#include "tests/dictionary/randomstream.h"

#include <QtEndian>

using namespace teskel::fuzz;
using namespace teskel::test;

namespace
{
constexpr qsizetype headSize = 8;
constexpr qsizetype changeSize = 3;

// Each three bytes: where, big-endian, and by what a byte of the stream changes.
void change(QByteArray& stream, const QByteArray& changes)
{
    if (stream.isEmpty())
        return;
    for (qsizetype i = 0; i + changeSize <= changes.size(); i += changeSize) {
        const qsizetype at = qFromBigEndian<quint16>(changes.constData() + i) % stream.size();
        stream[at] = static_cast<char>(stream.at(at) ^ changes.at(i + 2));
    }
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.size() < headSize)
        return 0;
    const auto choice = static_cast<quint8>(bytes.at(0));
    const auto beyond = static_cast<qint8>(bytes.at(1));
    PackedStream stream;
    stream.method = 1 + (choice & 3);
    // Mostly a small one: the plain decoder takes its time.
    stream.size =
        qFromBigEndian<quint16>(bytes.constData() + 2) & ((choice & 32) != 0 ? 0x7FFF : 0x7FF);
    stream.room = qMax(0, stream.size + ((choice & 8) != 0 ? beyond : 0));
    stream.bytes = bytes.mid(headSize);
    if ((choice & 4) != 0) {
        QRandomGenerator generator(qFromBigEndian<quint32>(bytes.constData() + 4));
        stream.bytes = stream.method == 4 ? randomFastest(generator) : randomBlocks(generator);
        change(stream.bytes, bytes.mid(headSize));
    }
    const qint64 claimed = stream.bytes.size() + ((choice & 16) != 0 ? beyond : 0);
    stream.claimedSize = static_cast<quint32>(qMax<qint64>(0, claimed));
    require(differenceFromPlain(stream).isEmpty());
    return 0;
}
