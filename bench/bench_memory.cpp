// SPDX-License-Identifier: MIT
// What an open dictionary holds in memory when no unpacked record is kept: bytes of the heap.
#include "bench/support/arguments.h"
#include "bench/support/words.h"

#include <QTextStream>

#include <malloc.h>

namespace
{
std::size_t heapBytes()
{
    const auto info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}
} // namespace

int main(int argc, char* argv[])
{
    using namespace teskel::bench;
    for (const QString& path : takeLexicons(argc, argv)) {
        QtDictionary sampled;
        openOrDie(sampled, path);
        const auto last = static_cast<quint16>(sampled.getWordRecordCount() - 1);
        const QByteArray word(sampled.getWordAt(CursorPosition::at(last, 0)));
        sampled.close();

        const std::size_t before = heapBytes();
        QtDictionary dictionary;
        openOrDie(dictionary, path);
        if (dictionary.findWord(word.constData(), CursorPosition::invalid(), false).isInvalid())
            qFatal("a word of the dictionary is not found");
        dictionary.clearWordCache();
        QTextStream(stdout) << heapBytes() - before << '\n';
    }
    return 0;
}
