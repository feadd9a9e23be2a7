// SPDX-License-Identifier: MIT
// Unpacking in memory with checksum: every word record of each dictionary given, and beside it the
// same texts as gzip members, by libdeflate.
#include "bench/support/arguments.h"
#include "bench/support/members.h"
#include "dictionary/unpacking/decode.h"

#include <QFileInfo>

#include <cstdlib>
#include <memory>

#include <benchmark/benchmark.h>
#include <libdeflate.h>

namespace
{
constexpr int level = 6; // libdeflate's usual one

using Block = std::unique_ptr<char, teskel::FreeDeleter>;

struct Texts {
    QByteArrayList members; // as they stand in the dictionary
    QByteArrayList gzipped;
    std::size_t largest = 0;
    qint64 bytes = 0;
};

struct FreeCompressor {
    void operator()(libdeflate_compressor* it) const { libdeflate_free_compressor(it); }
};
struct FreeDecompressor {
    void operator()(libdeflate_decompressor* it) const { libdeflate_free_decompressor(it); }
};

// Ends the program when a member is damaged: then there is nothing to measure.
Texts readTexts(const QString& path)
{
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(level));
    Texts texts;
    texts.members = teskel::bench::packedRecords(path);
    for (const QByteArray& member : texts.members) {
        teskel::MemberBlock block;
        const auto status = teskel::decodeMember(member.constData(),
                                                 static_cast<std::size_t>(member.size()), block);
        if (status != teskel::MemberStatus::Ok)
            qFatal("%s: %s", qUtf8Printable(path), teskel::memberStatusText(status));
        const std::size_t bound = libdeflate_gzip_compress_bound(compressor.get(), block.size);
        QByteArray packed(static_cast<qsizetype>(bound), '\0');
        packed.truncate(static_cast<qsizetype>(libdeflate_gzip_compress(
            compressor.get(), block.data.get(), block.size, packed.data(), bound)));
        texts.gzipped.append(packed);
        texts.largest = qMax(texts.largest, std::size_t{block.size});
        texts.bytes += block.size;
    }
    return texts;
}

void unpack(benchmark::State& state, const Texts& texts)
{
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray& member : texts.members) {
            teskel::MemberBlock block;
            if (teskel::decodeMember(member.constData(), static_cast<std::size_t>(member.size()),
                                     block) != teskel::MemberStatus::Ok)
                state.SkipWithError("a member is damaged");
            benchmark::DoNotOptimize(block.data.get());
        }
    }
    state.SetBytesProcessed(texts.bytes * static_cast<qint64>(state.iterations()));
}

// Takes memory for each text anew, as unpacking a member does.
void inflate(benchmark::State& state, const Texts& texts)
{
    const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(
        libdeflate_alloc_decompressor());
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray& packed : texts.gzipped) {
            const Block block(static_cast<char*>(std::malloc(texts.largest)));
            std::size_t size = 0;
            if (libdeflate_gzip_decompress(decompressor.get(), packed.constData(),
                                           static_cast<std::size_t>(packed.size()), block.get(),
                                           texts.largest, &size) != LIBDEFLATE_SUCCESS)
                state.SkipWithError("a gzip member is damaged");
            benchmark::DoNotOptimize(block.get());
        }
    }
    state.SetBytesProcessed(texts.bytes * static_cast<qint64>(state.iterations()));
}

} // namespace

int main(int argc, char* argv[])
{
    for (const QString& path : teskel::bench::takeLexicons(argc, argv)) {
        const QByteArray name = QFileInfo(path).baseName().toUtf8();
        const Texts texts = readTexts(path);
        benchmark::RegisterBenchmark(("unpack/" + name).constData(), unpack, texts)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("inflate/" + name).constData(), inflate, texts)
            ->Unit(benchmark::kMillisecond);
    }
    return teskel::bench::runBenchmarks(argc, argv);
}
