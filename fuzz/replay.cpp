// SPDX-License-Identifier: MIT
// Runs a fuzz target over the files of a folder, without a fuzzer: what was found stays found.
#include "fuzz/fuzztarget.h"

#include <QDir>
#include <QFile>
#include <QTextStream>

int main(int argc, char** argv)
{
    QTextStream out(stdout);
    if (argc != 2) {
        out << "usage: replay FOLDER\n";
        return 2;
    }
    const QDir folder(QFile::decodeName(argv[1]));
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            out << "cannot read " << name << '\n';
            return 1;
        }
        out << name << Qt::endl; // the last one named is the one that failed
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
        ++count;
    }
    out << count << " inputs\n";
    return count > 0 ? 0 : 1;
}
