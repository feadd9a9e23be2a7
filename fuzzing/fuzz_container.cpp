// SPDX-License-Identifier: MIT
// Any bytes as a Palm database: its header, its record list, its records as they are.
#include "dictionary/container/qtpalmdb.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"

#include <cstring>

using namespace teskel::fuzz;

namespace
{
constexpr int mostRecords = 40; // of a database, so that one input stays quick

// A record is handed over only when the file has every byte of it, and then as it stands there.
void checkRecord(QtRecords& records, unsigned short index, const char* file, std::size_t size)
{
    RecordExtent extent;
    const bool isLocated = records.locate(index, extent);
    const RecordPointer whole(records.getData(index));
    const RecordPointer beginning(records.getBeginning(index, 5));
    require((whole == nullptr) == (beginning == nullptr));
    if (!whole)
        return;
    require(isLocated && extent.offset >= 0 && extent.size == qint64{whole->size});
    // An empty record may stand anywhere: nothing is read of it.
    if (extent.size == 0)
        return;
    require(extent.offset + extent.size <= static_cast<qint64>(size));
    require(std::memcmp(whole->data, file + extent.offset, whole->size) == 0);
    require(beginning->size == qMin(whole->size, 5U));
    require(std::memcmp(beginning->data, whole->data, beginning->size) == 0);
    for (quint32 spare = 0; spare < Record::spareBytes; ++spare)
        require(whole->data[whole->size + spare] == '\0');
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    const auto* const bytes = reinterpret_cast<const char*>(data);
    file.setContent(bytes, size);
    QtPalmDatabase database;
    const bool isLoaded = database.load(file.path()) == 0;
    require(isLoaded == (size >= std::size_t{QtPalmDatabase::headerBytes}));
    require(std::strlen(database.getCreator()) <= 4 && std::strlen(database.getType()) <= 4);
    require(database.fileSize() == static_cast<qint64>(size));
    const int count = database.getNumRecords();
    require(database.getRecords()->getCount() == (isLoaded ? count : 0));
    for (int index = 0; index < qMin(count, mostRecords); ++index)
        checkRecord(*database.getRecords(), static_cast<unsigned short>(index), bytes, size);
    for (const int index : {count - 1, count, 65535})
        checkRecord(*database.getRecords(), static_cast<unsigned short>(index), bytes, size);
    return 0;
}
