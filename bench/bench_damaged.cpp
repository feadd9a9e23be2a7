// SPDX-License-Identifier: MIT
// The CPU microseconds of the one key that shows a large damaged article, from the key to the
// painted window, beside those of the key that shows a good one: "name damaged good" a line. Both
// keys are typed by turns; of several passes the least counts.
#include "bench/support/readerwindow.h"
#include "bench/support/typing.h"
#include "lexicon/file/palmdatabasewriter.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/packing/arjmember.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string>

#include <time.h>

using namespace Qt::StringLiterals;

using teskel::bench::Key;

namespace
{

constexpr std::size_t articleBytes = 29'000;
constexpr unsigned recordsBeforeWords = 5;

struct Article {
    const char* name;
    const char* unit;      ///< what it repeats
    const char* head = ""; ///< what stands in front
};

/// The first is the good one.
constexpr std::array articles{
    Article{"good", ""},
    Article{"one unbroken word", "a"},
    Article{"line feeds", "\n"},
    Article{"unknown entities", "&foobar;"},
    Article{"a letter a line", "a\n"},
    Article{"sense numbers", "1."},
    Article{"changes of letters", "<b>a</b>b"},
    Article{"table rows", "<tr><td>a"},
    Article{"tags beyond the limits", "<b>"},
    Article{"two directions on one line", "&_fna; a ", "<nobr>"},
    Article{"words on one line", "ab ", "<code style=\"white-space:nowrap\">"},
    Article{"tabs on one line", "a\t", "<pre>"},
    Article{"small capitals", "aB ", "<p style=\"font-variant:small-caps\">"},
    Article{"two scripts", "a&_bbaa;"},
    Article{"two directions", "a &_fna; "},
    Article{"list entries", "<li>a", "<ol>"},
    Article{"words in nested tables", "ab ",
            "<table><tr><td><table><tr><td><table><tr><td><table><tr><td>"},
    Article{"words in narrow lines", "ab ", "<ul><ul><ul><ul><ul><ul><ul><ul><ul><ul><ul><ul>"},
    Article{"tags under a style sheet", "<b>a</b> ",
            "<style>b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b,b{color:red}</style>"},
    Article{"places of links", "<a name=x>a</a> "},
    Article{"controls", "\x01\x02\x1F "},
};

std::string textOf(const Article& article)
{
    const std::string unit = article.unit;
    if (&article == articles.data())
        return "<i>noun</i>\n1. a word to be looked up\n2. another sense of it; a last one\n";
    std::string text = article.head;
    while (text.size() + unit.size() <= articleBytes)
        text += unit;
    return text;
}

/// Each article has a record of its own, and a letter for its word.
bool writeLexicon(const std::string& path)
{
    using namespace teskel;
    PendingFile file(path);
    PalmDatabaseWriter writer(file, "Damaged",
                              static_cast<uint16_t>(articles.size() + recordsBeforeWords));
    std::string index;
    for (std::size_t number = 0; number < articles.size(); ++number)
        (index += static_cast<char>('a' + number)) += '\0';
    ArjEncoder encoder(1);
    writer.add(index += '\0');
    writer.add(ArjMember::pack("-", encoder));
    writer.add(ArjMember::pack(std::string("Damaged\0", 8), encoder));
    writer.add(ArjMember::pack("-", encoder));
    writer.add(ArjMember::pack("-", encoder));
    for (std::size_t number = 0; number < articles.size(); ++number) {
        std::string record(1, static_cast<char>('a' + number));
        record += '\0';
        (record += textOf(articles[number])) += '\0';
        writer.add(ArjMember::pack(record += '\0', encoder));
    }
    std::string error;
    return writer.finish() && file.commit(error);
}

// Of all threads of the process.
double cpuMicroseconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

double costOf(teskel::bench::ReaderWindow& window, std::size_t number)
{
    const double start = cpuMicroseconds();
    teskel::bench::press(window, window.entry(),
                         Key{QLatin1Char(static_cast<char>('a' + number)), true});
    return cpuMicroseconds() - start;
}

} // namespace

int main(int argc, char* argv[])
{
    teskel::bench::useOwnSettings();
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    const int passes = argc > 1 ? std::max(1, QString::fromLocal8Bit(argv[1]).toInt()) : 3;
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"Damaged.PDB"_s);
    if (!writeLexicon(path.toStdString()))
        return 1;
    teskel::bench::ReaderWindow window(path);
    teskel::bench::showForTyping(window);
    for (std::size_t number = 1; number < articles.size(); ++number) {
        double damaged = std::numeric_limits<double>::infinity();
        double good = damaged;
        for (int pass = 0; pass < passes; ++pass) {
            damaged = std::min(damaged, costOf(window, number));
            good = std::min(good, costOf(window, 0));
        }
        std::printf("%s\t%.1f\t%.1f\n", articles[number].name, damaged, good);
    }
    return 0;
}
