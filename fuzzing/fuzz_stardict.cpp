// SPDX-License-Identifier: MIT
// Any bytes as the files of a StarDict dictionary, with a mark between them; without a fourth part
// there are no alternatives.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "fuzzing/sourceexercise.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace teskel::fuzz;

namespace
{
constexpr QByteArrayView mark = "%%";

QByteArray takePart(QByteArray& bytes)
{
    const qsizetype end = bytes.indexOf(mark);
    QByteArray part = bytes.left(end < 0 ? bytes.size() : end);
    bytes = end < 0 ? QByteArray() : bytes.mid(end + mark.size());
    return part;
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const ScratchFolder folder;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    folder.write(u"fuzz.ifo"_s, "StarDict's dict ifo file\n" + takePart(bytes));
    folder.write(u"fuzz.idx"_s, takePart(bytes));
    folder.write(u"fuzz.dict"_s, takePart(bytes));
    if (bytes.isEmpty())
        QFile::remove(folder.path(u"fuzz.syn"_s));
    else
        folder.write(u"fuzz.syn"_s, bytes);
    exerciseSource("stardict", folder.path(u"fuzz.ifo"_s).toStdString());
    return 0;
}
