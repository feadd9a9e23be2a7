// SPDX-License-Identifier: MIT
#include "lexicon/verify/verifiedfile.h"

#include <algorithm>

namespace teskel
{

unsigned VerifiedFile::wordRecords() const
{
    return std::max<unsigned>(_records.getCount(), limits::firstWordRecord) -
           limits::firstWordRecord;
}

const KeyList& VerifiedFile::index()
{
    if (!_index) {
        const RecordPointer record(_records.getData(indexRecord));
        _index = record ? KeyList({record->data, record->size}) : KeyList();
    }
    return *_index;
}

std::optional<TextRecord> VerifiedFile::unpacked(unsigned number)
{
    const RecordPointer packed(_records.getData(static_cast<unsigned short>(number)));
    MemberBlock block;
    const MemberStatus status =
        packed ? decodeMember(packed->data, packed->size, block, TextRecord::spareBytes)
               : MemberStatus::BadHeader;
    if (status == MemberStatus::Ok)
        return TextRecord(std::move(block));
    report(recordName(number) + " does not unpack: " + memberStatusText(status));
    return std::nullopt;
}

std::string recordName(unsigned number)
{
    return "record " + std::to_string(number);
}

} // namespace teskel
