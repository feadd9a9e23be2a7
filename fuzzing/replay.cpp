// SPDX-License-Identifier: MIT
// Runs a fuzz target over the files of folders, without a fuzzer: what was found stays found. A
// folder that is not there has no files.
#include "fuzzing/fuzztarget.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

namespace
{
QTextStream out(stdout);

/// @return how many files there were, or -1 after a message
int replayFolder(const QDir& folder)
{
    int count = 0;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            out << "cannot read " << name << '\n';
            return -1;
        }
        out << name << Qt::endl; // the last one named is the one that failed
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
        ++count;
    }
    return count;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        out << "usage: replay FOLDER...\n";
        return 2;
    }
    LLVMFuzzerInitialize(&argc, &argv);
    int total = 0;
    for (int number = 1; number < argc; ++number) {
        const int count = replayFolder(QDir(QFile::decodeName(argv[number])));
        if (count < 0)
            return 1;
        total += count;
    }
    out << total << " inputs\n";
    return total > 0 ? 0 : 1;
}
