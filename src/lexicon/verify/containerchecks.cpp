// SPDX-License-Identifier: MIT
#include "lexicon/verify/containerchecks.h"

#include <cstring>

namespace teskel::checks
{

namespace
{

qint64 endOfRecordList(QtRecords& records)
{
    return QtPalmDatabase::headerBytes + qint64{QtRecords::entryBytes} * records.getCount();
}

/// Whether a reader needs the record: 1, 3 and 4 have no use.
bool isRead(unsigned number)
{
    return number == VerifiedFile::indexRecord || number == VerifiedFile::descriptionRecord ||
           number >= limits::firstWordRecord;
}

bool sizeHolds(VerifiedFile& file, unsigned number, qint64 size)
{
    if (size == 0 && isRead(number)) {
        file.report(recordName(number) + " has no bytes");
        return false;
    }
    if (size > limits::packedBytes) {
        file.report(recordName(number) + " has " + std::to_string(size) +
                    " bytes, the reader takes none above 67,108,864");
        return false;
    }
    return true;
}

} // namespace

bool container(VerifiedFile& file)
{
    QtRecords& list = file.records();
    if (file.database().fileSize() < QtPalmDatabase::headerBytes)
        file.report("the file ends within its header of 78 bytes");
    else if (file.database().fileSize() < endOfRecordList(list))
        file.report("the file ends within its list of " + std::to_string(list.getCount()) +
                    " records");
    else
        return true;
    return false;
}

bool creator(VerifiedFile& file)
{
    if (std::strcmp(file.database().getCreator(), "TSKL") == 0)
        return true;
    file.report("the creator is not \"TSKL\"");
    return false;
}

bool records(VerifiedFile& file)
{
    const unsigned count = file.records().getCount();
    if (count >= limits::firstWordRecord)
        return true;
    file.report("there are " + std::to_string(count) + " records, a dictionary has at least 5");
    return false;
}

bool offsets(VerifiedFile& file)
{
    QtRecords& list = file.records();
    const qint64 fileSize = file.database().fileSize();
    qint64 earliest = endOfRecordList(list);
    std::vector<qint64> sizes;
    for (unsigned i = 0; i < list.getCount(); ++i) {
        RecordExtent extent;
        list.locate(static_cast<unsigned short>(i), extent);
        const std::string beginning =
            recordName(i) + " begins at " + std::to_string(extent.offset) + ", ";
        if (extent.offset < earliest) {
            file.report(beginning + "before the end of what stands in front of it");
            return false;
        }
        if (extent.offset > fileSize) {
            file.report(beginning + "the file ends at " + std::to_string(fileSize));
            return false;
        }
        earliest = extent.offset;
        sizes.push_back(extent.size);
    }
    bool holds = true;
    for (unsigned i = 0; i < sizes.size(); ++i)
        holds = sizeHolds(file, i, sizes[i]) && holds;
    return holds;
}

} // namespace teskel::checks
