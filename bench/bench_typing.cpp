// SPDX-License-Identifier: MIT
// One typed character, from the key to the painted window: in the reader, and in a bare window that
// is told to show, for the same keys, the same 20 rows and the same rich text.
#include "bench/support/arguments.h"
#include "bench/support/paintcounter.h"
#include "bench/support/readerwindow.h"
#include "bench/support/settle.h"
#include "bench/support/words.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include <benchmark/benchmark.h>

using teskel::bench::BareWindow;
using teskel::bench::PaintCounter;
using teskel::bench::ReaderWindow;
using teskel::bench::settle;
using teskel::bench::View;

namespace
{

constexpr int wordCount = 60;
constexpr QSize windowSize(640, 480);

struct Key {
    QChar letter;
    bool startsWord;
};

// The letters of words from all over the dictionary.
QList<Key> keysOf(const QString& path)
{
    QtDictionary dictionary;
    teskel::bench::openOrDie(dictionary, path);
    QList<Key> keys;
    for (const QByteArray& word : teskel::bench::sampleWords(dictionary, wordCount)) {
        const QString text = QString::fromLatin1(word);
        for (qsizetype index = 0; index < text.size(); ++index)
            keys.append({text.at(index), index == 0});
    }
    return keys;
}

void showAt(QMainWindow& window)
{
    window.resize(windowSize);
    window.show();
    window.activateWindow();
    settle(200);
}

// As a keyboard does it: through the window, to whatever has the focus in it.
void press(QMainWindow& window, QLineEdit* entry, const Key& key)
{
    if (key.startsWord)
        entry->selectAll(); // the letter replaces the word before
    QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, QString(key.letter),
                        Qt::NoModifier);
    settle();
}

void finish(benchmark::State& state, const PaintCounter& paints)
{
    state.counters["paints"] =
        benchmark::Counter(paints.count(), benchmark::Counter::kAvgIterations);
    if (paints.count() == 0)
        state.SkipWithError("nothing was painted");
}

void reader(benchmark::State& state, const QString& path)
{
    const QList<Key> keys = keysOf(path);
    ReaderWindow window(path);
    showAt(window);
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
    const QList<Key> keys = keysOf(path);
    QList<View> views;
    {
        ReaderWindow window(path);
        showAt(window);
        for (const Key& key : keys) {
            press(window, window.entry(), key);
            views.append(window.view());
        }
    }
    BareWindow window;
    qsizetype next = 0;
    window.onTyped = [&] { window.setView(views.at(next)); };
    showAt(window);
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
        benchmark::RegisterBenchmark(name, function, lexicons.constFirst())
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("reader", reader);
    add("bare", bare);
    return teskel::bench::runBenchmarks(argc, argv);
}
