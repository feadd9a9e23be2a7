// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconfacts.h"

#include "dictionary/container/qtpalmdb.h"
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/lexiconfile.h"
#include "lexicon/text/givenback.h"

#include <QFile>

#include <set>

namespace teskel
{

LexiconReader::Status LexiconFacts::gather(LexiconReader& reader, const std::string& path,
                                           std::string& error)
{
    if (const auto status = reader.checkDescription(error); status != LexiconReader::Status::Ok)
        return status;
    name = reader.name();
    description = reader.description();
    records = reader.recordCount();
    hasLetterReferences = reader.describesInReferences();
    const auto count = [this](std::string_view, std::string_view article) {
        ++headwords;
        hasLetterReferences = hasLetterReferences || givenback::hasReferences(article);
        return true;
    };
    const LexiconReader::Status status = reader.visitFrom({}, count, error);
    if (status == LexiconReader::Status::Ok && !gatherRecords(path, error))
        return LexiconReader::Status::Unreadable;
    return status;
}

bool LexiconFacts::gatherRecords(const std::string& path, std::string& error)
{
    QFile file;
    if (!openLexiconFile(file, path, error))
        return false;
    QtPalmDatabase database;
    if (database.load(file.fileName()) != 0) {
        error = path + " is no lexicon any more";
        return false;
    }
    fileBytes = static_cast<uint64_t>(database.fileSize());
    QtRecords& list = *database.getRecords();
    if (RecordExtent index; list.locate(0, index))
        indexBytes = static_cast<uint64_t>(index.size);
    std::set<unsigned> used;
    for (unsigned number = limits::firstWordRecord; number < list.getCount(); ++number) {
        const RecordPointer record(list.getData(static_cast<unsigned short>(number)));
        if (!record)
            continue;
        CBuffer bytes;
        bytes.OpenMemory(record->data, static_cast<long>(record->size), CBuffer::Read_Mode);
        const CFileHeader header(&bytes);
        packedBytes += record->size;
        textBytes += header.uncompressedSize();
        used.insert(header.method());
    }
    for (const unsigned method : used)
        methods += (methods.empty() ? "" : ", ") + std::to_string(method);
    return true;
}

} // namespace teskel
