// SPDX-License-Identifier: MIT
// The CPU microseconds of each typed key, from the key to the painted window, one a line: in the
// reader, or in a bare window that shows the same. Of several passes over the same keys the least
// counts for each. Without any pass it does all but type.
#include "bench/support/readerwindow.h"
#include "bench/support/typing.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLineEdit>

#include <algorithm>
#include <cstdio>
#include <limits>

#include <time.h>

using namespace Qt::StringLiterals;

using teskel::bench::Key;

namespace
{

// Of all threads of the process.
double cpuMicroseconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

template<typename Window, typename BeforeKey>
void type(Window& window, const QList<Key>& keys, int passes, BeforeKey beforeKey)
{
    teskel::bench::showForTyping(window);
    QList<double> costs(keys.size(), std::numeric_limits<double>::infinity());
    for (int pass = 0; pass < passes; ++pass) {
        for (qsizetype index = 0; index < keys.size(); ++index) {
            beforeKey(index);
            const double start = cpuMicroseconds();
            teskel::bench::press(window, window.entry(), keys.at(index));
            costs[index] = std::min(costs[index], cpuMicroseconds() - start);
        }
    }
    if (passes > 0) {
        for (const double cost : std::as_const(costs))
            std::printf("%.1f\n", cost);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    teskel::bench::useOwnSettings();
    const QApplication application(argc, argv);
    // A blinking caret would paint at times of its own.
    QApplication::setCursorFlashTime(0);
    QCommandLineParser parser;
    const QCommandLineOption bare(u"bare"_s, u"types into the bare window"_s);
    const QCommandLineOption count(u"keys"_s, u"how many keys"_s, u"NUMBER"_s, u"500"_s);
    const QCommandLineOption passes(u"passes"_s, u"how often"_s, u"NUMBER"_s, u"3"_s);
    parser.addOptions({bare, count, passes});
    parser.addPositionalArgument(u"LEXICON"_s, u"the dictionary"_s);
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    const QString path = parser.positionalArguments().constFirst();
    const int number = parser.value(count).toInt();
    const int repeats = parser.value(passes).toInt();

    const QList<Key> keys = teskel::bench::keysOf(path, std::max(1, number)).first(number);
    if (parser.isSet(bare)) {
        const QList<teskel::bench::View> views = teskel::bench::viewsOf(path, keys);
        teskel::bench::BareWindow window;
        qsizetype shown = 0;
        window.onTyped = [&] { window.setView(views.at(shown)); };
        type(window, keys, repeats, [&shown](qsizetype index) { shown = index; });
    } else {
        teskel::bench::ReaderWindow window(path);
        type(window, keys, repeats, [](qsizetype) {});
    }
    return 0;
}
