// SPDX-License-Identifier: MIT
#include "lexicon/packing/arjmember.h"

#include "dictionary/unpacking/arjformat.h"

#include <zlib.h>

namespace teskel
{

namespace
{

constexpr char memberName[] = "r";
constexpr unsigned archiverVersion = 11;
constexpr unsigned minimumVersion = 1;
constexpr unsigned hostUnix = 2;
constexpr unsigned binaryFile = 0;
constexpr uint32_t fixedDate = 0x00210000; // 1 January 1980, 0:00
constexpr unsigned regularFileMode = 0100644;

void putNumber(std::string& out, uint32_t number, unsigned bytes)
{
    for (unsigned i = 0; i < bytes; ++i)
        out.push_back(static_cast<char>(static_cast<unsigned char>(number >> (8 * i))));
}

uint32_t checksum(std::string_view data)
{
    return static_cast<uint32_t>(
        ::crc32(0, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
}

std::string basicHeader(std::string_view data, size_t packedSize, int method)
{
    std::string header;
    putNumber(header, arj::firstHeaderSize, 1);
    putNumber(header, archiverVersion, 1);
    putNumber(header, minimumVersion, 1);
    putNumber(header, hostUnix, 1);
    putNumber(header, 0, 1); // flags
    putNumber(header, static_cast<uint32_t>(method), 1);
    putNumber(header, binaryFile, 1);
    putNumber(header, 0, 1); // reserved
    putNumber(header, fixedDate, 4);
    putNumber(header, static_cast<uint32_t>(packedSize), 4);
    putNumber(header, static_cast<uint32_t>(data.size()), 4);
    putNumber(header, checksum(data), 4);
    putNumber(header, 0, 2); // the name has no directory in front
    putNumber(header, regularFileMode, 2);
    putNumber(header, 0, 2); // host data
    header.append(memberName, sizeof memberName);
    header.push_back('\0'); // comment
    return header;
}

} // namespace

std::string ArjMember::pack(std::string_view data, ArjEncoder& encoder)
{
    const std::string packed = encoder.pack(data);
    const std::string header = basicHeader(data, packed.size(), encoder.method());
    std::string member;
    member.reserve(header.size() + packed.size() + 10);
    putNumber(member, arj::headerId, 2);
    putNumber(member, static_cast<uint32_t>(header.size()), 2);
    member += header;
    putNumber(member, checksum(header), 4);
    putNumber(member, 0, 2); // no extended header
    member += packed;
    return member;
}

} // namespace teskel
