// SPDX-License-Identifier: MIT
// The word list: filled at places all over the dictionary and moved line by line, beside a stock
// list widget of the same size whose 20 rows are set to the same words.
#include "bench/support/arguments.h"
#include "bench/support/paintcounter.h"
#include "bench/support/settle.h"
#include "bench/support/words.h"
#include "lookup/qdictionarylistbox.h"
#include "lookup/qdictionarylistboxitem.h"

#include <QApplication>
#include <QListWidget>

#include <memory>

#include <benchmark/benchmark.h>

using teskel::bench::PaintCounter;
using teskel::bench::settle;

namespace
{

constexpr int rowCount = 20;
constexpr int placeCount = 500;
constexpr QSize windowSize(300, 480);
enum class Painting { Without, With };

/// The word list in a window of its own.
class WordList
{
public:
    explicit WordList(const QString& path)
        : list(&dictionary, nullptr)
    {
        teskel::bench::openOrDie(dictionary, path);
        places = teskel::bench::samplePositions(dictionary, placeCount);
        for (int row = 0; row < rowCount; ++row)
            list.insertItem(new QDictionaryListBoxItem(QString(), CursorPosition::invalid()));
        list.resize(windowSize);
        list.fill(places.constFirst());
        list.show();
        settle(100);
    }

    QtDictionary dictionary;
    QDictionaryListBox list;
    QList<CursorPosition> places;
};

// What a measurement ends with: proof of how much was painted.
void reportPaints(benchmark::State& state, const PaintCounter& paints)
{
    state.counters["paints"] =
        benchmark::Counter(paints.count(), benchmark::Counter::kAvgIterations);
}

void fill(benchmark::State& state, const QString& path, Painting painting)
{
    WordList words(path);
    const PaintCounter paints(words.list.viewport());
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        words.list.fill(words.places.at(next));
        if (painting == Painting::With)
            settle();
        next = (next + 1) % words.places.size();
    }
    reportPaints(state, paints);
}

void move(benchmark::State& state, const QString& path, Painting painting)
{
    WordList words(path);
    const PaintCounter paints(words.list.viewport());
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        words.list.move(next % 1000 < 500 ? 1 : -1);
        if (painting == Painting::With)
            settle();
        ++next;
    }
    reportPaints(state, paints);
}

void stockRows(benchmark::State& state, const QString& path, Painting painting)
{
    QList<QStringList> screens;
    {
        WordList words(path);
        for (const CursorPosition place : std::as_const(words.places)) {
            words.list.fill(place);
            QStringList screen;
            for (int row = 0; row < rowCount; ++row)
                screen.append(words.list.text(row));
            screens.append(screen);
        }
    }
    QListWidget list;
    list.addItems(screens.constFirst());
    list.setCurrentRow(0);
    list.resize(windowSize);
    list.show();
    settle(100);
    const PaintCounter paints(list.viewport());
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        const QStringList& screen = screens.at(next);
        for (int row = 0; row < rowCount; ++row)
            list.item(row)->setText(screen.at(row));
        if (painting == Painting::With)
            settle();
        next = (next + 1) % screens.size();
    }
    reportPaints(state, paints);
}

template<typename Function>
void add(const QByteArray& name, Function function, const QString& path)
{
    for (const Painting painting : {Painting::Without, Painting::With}) {
        const QByteArray full = name + (painting == Painting::With ? "/painted" : "/unpainted");
        benchmark::RegisterBenchmark(full.constData(), function, path, painting)
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMicrosecond);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList lexicons = teskel::bench::takeLexicons(argc, argv);
    const QApplication application(argc, argv);
    add("fill", fill, lexicons.constFirst());
    add("move", move, lexicons.constFirst());
    add("stock rows", stockRows, lexicons.constFirst());
    return teskel::bench::runBenchmarks(argc, argv);
}
