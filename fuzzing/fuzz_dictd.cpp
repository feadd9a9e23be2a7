// SPDX-License-Identifier: MIT
// Any bytes as the two files of a dictd dictionary, with a NUL between them.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "fuzzing/sourceexercise.h"

using namespace Qt::StringLiterals;
using namespace teskel::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ScratchFolder folder;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype end = bytes.indexOf('\0');
    folder.write(u"fuzz.index"_s, bytes.left(end < 0 ? bytes.size() : end));
    folder.write(u"fuzz.dict"_s, end < 0 ? QByteArray() : bytes.mid(end + 1));
    exerciseSource("dictd", folder.path(u"fuzz.index"_s).toStdString());
    return 0;
}
