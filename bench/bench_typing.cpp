// SPDX-License-Identifier: MIT
// One typed character, from the key to the painted window: in the reader, and in a bare window that
// is told to show, for the same keys, the same 20 rows and the same rich text.
#include "bench/support/arguments.h"
#include "bench/support/paintcounter.h"
#include "bench/support/readerwindow.h"
#include "bench/support/typing.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

using teskel::bench::BareWindow;
using teskel::bench::Key;
using teskel::bench::keysOf;
using teskel::bench::PaintCounter;
using teskel::bench::press;
using teskel::bench::ReaderWindow;
using teskel::bench::showForTyping;
using teskel::bench::View;
using teskel::bench::viewsOf;

namespace
{

constexpr int wordCount = 15;

void finish(benchmark::State& state, const PaintCounter& paints)
{
    state.counters["paints"] =
        benchmark::Counter(paints.count(), benchmark::Counter::kAvgIterations);
    if (paints.count() == 0)
        state.SkipWithError("nothing was painted");
}

void reader(benchmark::State& state, const QString& path)
{
    const QList<Key> keys = keysOf(path, wordCount);
    ReaderWindow window(path);
    showForTyping(window);
    const PaintCounter paints(&window);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        press(window, window.entry(), keys.at(next));
        next = (next + 1) % keys.size();
    }
    finish(state, paints);
}

void bare(benchmark::State& state, const QString& path)
{
    const QList<Key> keys = keysOf(path, wordCount);
    const QList<View> views = viewsOf(path, keys);
    BareWindow window;
    qsizetype next = 0;
    window.onTyped = [&] { window.setView(views.at(next)); };
    showForTyping(window);
    const PaintCounter paints(&window);
    for ([[maybe_unused]] auto _ : state) {
        press(window, window.entry(), keys.at(next));
        next = (next + 1) % keys.size();
    }
    finish(state, paints);
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList lexicons = teskel::bench::takeLexicons(argc, argv);
    teskel::bench::useOwnSettings();
    const QApplication application(argc, argv);
    const auto add = [&](const char* name, auto function) {
        // Every key once a run, so that both windows show the same.
        benchmark::RegisterBenchmark(name, function, lexicons.constFirst())
            ->Iterations(keysOf(lexicons.constFirst(), wordCount).size())
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("reader", reader);
    add("bare", bare);
    return teskel::bench::runBenchmarks(argc, argv);
}
