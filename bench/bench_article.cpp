// SPDX-License-Identifier: MIT
// An article handed to the article view, beside a stock rich-text view that is handed the same
// markup: articles all over the dictionary, and one whose letters are all references, beside the
// letters themselves.
#include "bench/support/arguments.h"
#include "bench/support/words.h"
#include "dictionary/qtdictionary.h"
#include "lookup/articleformatter.h"
#include "lookup/dictionarytexts.h"
#include "script/letterreference.h"
#include "widgets/article/qteskeledit.h"

#include <QApplication>
#include <QTextDocument>
#include <QTextEdit>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int articleCount = 500;
constexpr int paragraphCount = 100;

/// 45 letters that Latin-1 lacks.
constexpr auto line = u"вода и земля и небо и люди и звери и птицы и рыбы и травы и я";

QStringList articlesOf(const QString& path)
{
    QtDictionary dictionary;
    teskel::bench::openOrDie(dictionary, path);
    QStringList articles;
    for (const CursorPosition place : teskel::bench::samplePositions(dictionary, articleCount)) {
        const QString text = teskel::articleAt(dictionary, place).value_or(QString());
        articles.append(teskel::ArticleFormatter::headword(teskel::wordAt(dictionary, place)) +
                        teskel::ArticleFormatter::format(text));
    }
    return articles;
}

QStringList foreignArticle()
{
    return {QString(u"<p>"_s + QString::fromUtf16(line) + u"</p>\n"_s).repeated(paragraphCount)};
}

/// @param foreign an article with no digit in it
QStringList withReferences(const QStringList& foreign)
{
    QString text;
    for (const QChar letter : foreign.constFirst()) {
        if (letter.unicode() > 0xFF)
            text += QString::fromStdString(teskel::letterReference(letter.unicode()));
        else
            text += letter;
    }
    return {text};
}

void reader(benchmark::State& state, const QStringList& articles)
{
    QTeskelEdit view;
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        view.setText(articles.at(next));
        next = (next + 1) % articles.size();
    }
}

void stock(benchmark::State& state, const QStringList& articles)
{
    QTextEdit view;
    view.setUndoRedoEnabled(false);
    view.document()->setDefaultStyleSheet(u"p { margin-top: 4px; margin-bottom: 4px; }"_s);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        view.setHtml(articles.at(next));
        next = (next + 1) % articles.size();
    }
}

/// What of the reader's share is the search for references alone.
void resolve(benchmark::State& state, const QStringList& articles)
{
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(teskel::withLetterReferencesResolved(articles.at(next)));
        next = (next + 1) % articles.size();
    }
}

template<typename Function>
void add(const char* name, Function function, const QStringList& articles)
{
    benchmark::RegisterBenchmark(name, function, articles)
        ->MeasureProcessCPUTime()
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

int main(int argc, char* argv[])
{
    const QStringList lexicons = teskel::bench::takeLexicons(argc, argv);
    const QApplication application(argc, argv);
    const QStringList articles = articlesOf(lexicons.constFirst());
    const QStringList foreign = foreignArticle();
    const QStringList references = withReferences(foreign);
    add("articles/reader", reader, articles);
    add("articles/stock", stock, articles);
    add("articles/resolve", resolve, articles);
    add("references/reader", reader, references);
    add("references/stock", stock, foreign);
    add("references/resolve", resolve, references);
    return teskel::bench::runBenchmarks(argc, argv);
}
