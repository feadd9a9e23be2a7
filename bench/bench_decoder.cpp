// SPDX-License-Identifier: MIT
// Unpacking, by method: every word record of each dictionary given, packed bytes already in memory.
#include "bench/support/arguments.h"
#include "bench/support/members.h"
#include "dictionary/unpacking/decode.h"

#include <QFileInfo>

#include <benchmark/benchmark.h>

namespace
{

void unpack(benchmark::State& state, const QByteArrayList& members)
{
    qint64 bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray& member : members) {
            teskel::MemberBlock block;
            const auto status = teskel::decodeMember(
                member.constData(), static_cast<std::size_t>(member.size()), block);
            if (status != teskel::MemberStatus::Ok) {
                state.SkipWithError(teskel::memberStatusText(status));
                return;
            }
            bytes += block.size;
            benchmark::DoNotOptimize(block.data.get());
        }
    }
    state.SetBytesProcessed(bytes);
}

} // namespace

int main(int argc, char* argv[])
{
    for (const QString& path : teskel::bench::takeLexicons(argc, argv)) {
        const QByteArray name = "unpack/" + QFileInfo(path).baseName().toUtf8();
        benchmark::RegisterBenchmark(name.constData(), unpack, teskel::bench::packedRecords(path))
            ->Unit(benchmark::kMillisecond);
    }
    return teskel::bench::runBenchmarks(argc, argv);
}
