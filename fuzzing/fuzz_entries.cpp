// SPDX-License-Identifier: MIT
// Any bytes as word index and record texts, packed properly: what a checksum keeps from the fuzzer
// of whole files.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "tests/support/arjmember.h"
#include "tests/support/dictionarywriter.h"

using namespace teskel::fuzz;

// "|" ends the index and each record; "/" stands for a NUL, so that seeds can be read.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    bytes.replace('/', '\0');
    QByteArrayList texts = bytes.split('|');
    teskel::test::DictionaryWriter writer;
    writer.setIndex(texts.takeFirst());
    for (const QByteArray& text : texts.mid(0, 200))
        writer.addPackedRecord("", teskel::test::literalMember(text));
    const QByteArray whole = writer.container().build();
    file.setContent(whole.constData(), static_cast<std::size_t>(whole.size()));
    exerciseDictionary(file.path());
    return 0;
}
