// SPDX-License-Identifier: MIT
// The engine on dictionaries of several sizes: opening, search, articles and walks.
#include "bench/support/arguments.h"
#include "bench/support/words.h"

#include <QFileInfo>

#include <array>
#include <memory>

#include <benchmark/benchmark.h>

using teskel::bench::openOrDie;
using teskel::bench::sampleWords;

namespace
{

constexpr int sampleSize = 2000;
constexpr int warmSampleSize = 50; // fewer records than the cache holds

enum class Cache { Cold, Warm };

QByteArrayList beginnings(const QByteArrayList& words)
{
    QByteArrayList result;
    for (const QByteArray& word : words)
        result.append(word.left(std::max<qsizetype>(1, word.size() * 2 / 3)));
    return result;
}

void fetchArticle(QtDictionary& dictionary, CursorPosition position)
{
    static std::array<char, 65536> article;
    unsigned size = article.size();
    dictionary.getDescription(position, article.data(), &size);
    benchmark::DoNotOptimize(article.data());
}

void open(benchmark::State& state, const QString& path)
{
    for ([[maybe_unused]] auto _ : state) {
        QtDictionary dictionary;
        openOrDie(dictionary, path);
    }
}

// Unpacks the records of words, and has the word index read.
void warm(QtDictionary& dictionary, const QByteArrayList& words)
{
    for (const QByteArray& word : words)
        dictionary.findWord(word.constData(), CursorPosition::invalid(), false);
}

// Searches and nothing else. Cold: no unpacked record is at hand.
void find(benchmark::State& state, const QString& path, Cache cache, bool prefix)
{
    QtDictionary dictionary;
    openOrDie(dictionary, path);
    QByteArrayList words =
        sampleWords(dictionary, cache == Cache::Cold ? sampleSize : warmSampleSize);
    warm(dictionary, words);
    if (prefix)
        words = beginnings(words);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (cache == Cache::Cold)
            dictionary.clearWordCache();
        const QByteArray& word = words.at(next);
        const CursorPosition position =
            dictionary.findWord(word.constData(), CursorPosition::invalid(), prefix);
        if (position.isInvalid())
            state.SkipWithError("a word of the dictionary is not found");
        next = (next + 1) % words.size();
    }
}

// A search and the article found.
void lookUp(benchmark::State& state, const QString& path, Cache cache)
{
    QtDictionary dictionary;
    openOrDie(dictionary, path);
    const QByteArrayList words =
        sampleWords(dictionary, cache == Cache::Cold ? sampleSize : warmSampleSize);
    warm(dictionary, words);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (cache == Cache::Cold)
            dictionary.clearWordCache();
        fetchArticle(dictionary, dictionary.findWord(words.at(next).constData(),
                                                     CursorPosition::invalid(), false));
        next = (next + 1) % words.size();
    }
}

// The first look-up after opening, opening included.
void firstLookUp(benchmark::State& state, const QString& path)
{
    QtDictionary sampled;
    openOrDie(sampled, path);
    const QByteArrayList words = sampleWords(sampled, warmSampleSize);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        QtDictionary dictionary;
        openOrDie(dictionary, path);
        fetchArticle(dictionary, dictionary.findWord(words.at(next).constData(),
                                                     CursorPosition::invalid(), false));
        next = (next + 1) % words.size();
    }
}

void article(benchmark::State& state, const QString& path, Cache cache)
{
    QtDictionary dictionary;
    openOrDie(dictionary, path);
    const auto positions = teskel::bench::samplePositions(
        dictionary, cache == Cache::Cold ? sampleSize : warmSampleSize);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (cache == Cache::Cold)
            dictionary.clearWordCache();
        fetchArticle(dictionary, positions.at(next));
        next = (next + 1) % positions.size();
    }
}

// Every word, from the first to the last.
void walk(benchmark::State& state, const QString& path)
{
    QtDictionary dictionary;
    openOrDie(dictionary, path);
    qint64 words = 0;
    for ([[maybe_unused]] auto _ : state) {
        dictionary.clearWordCache();
        const std::unique_ptr<DictionaryIterator> iterator(dictionary.createIterator());
        for (CursorPosition position = iterator->begin(); iterator->isValid(position);
             position = iterator->move(position, 1)) {
            benchmark::DoNotOptimize(iterator->getWord());
            ++words;
        }
    }
    state.SetItemsProcessed(words);
}

template<typename Function, typename... Arguments>
void add(const char* what, const QString& path, Function function, Arguments... arguments)
{
    const QByteArray name = QByteArray(what) + '/' + QFileInfo(path).baseName().toUtf8();
    benchmark::RegisterBenchmark(name.constData(), function, path, arguments...)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char* argv[])
{
    for (const QString& path : teskel::bench::takeLexicons(argc, argv)) {
        add("open", path, open);
        add("find exact cold", path, find, Cache::Cold, false);
        add("find exact warm", path, find, Cache::Warm, false);
        add("find prefix cold", path, find, Cache::Cold, true);
        add("find prefix warm", path, find, Cache::Warm, true);
        add("article cold", path, article, Cache::Cold);
        add("article warm", path, article, Cache::Warm);
        add("look up cold", path, lookUp, Cache::Cold);
        add("look up warm", path, lookUp, Cache::Warm);
        add("open and look up", path, firstLookUp);
        add("walk", path, walk);
    }
    return teskel::bench::runBenchmarks(argc, argv);
}
