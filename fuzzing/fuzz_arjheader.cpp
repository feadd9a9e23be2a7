// SPDX-License-Identifier: MIT
// Any bytes as the header of an ARJ member.
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"

#include <QtEndian>

#include <cstring>
#include <vector>

using namespace teskel::fuzz;
namespace arj = teskel::arj;

namespace
{
constexpr long fixedBytes = 4 + arj::firstHeaderSize; // id, size, and the fields

void checkFields(const CFileHeader& header, const std::uint8_t* data, std::size_t size)
{
    require(std::strlen(header.fileName()) < arj::fileNameCapacity);
    require(std::strlen(header.comment()) < arj::commentCapacity);
    if (!header.isValid())
        return;
    require(header.headerId() == arj::headerId && header.basicHeaderSize() > 0);
    if (size < std::size_t{fixedBytes} || header.basicHeaderSize() < arj::firstHeaderSize)
        return;
    require(header.method() == data[4 + 5]);
    require(header.compressedSize() == qFromLittleEndian<quint32>(data + 16));
    require(header.uncompressedSize() == qFromLittleEndian<quint32>(data + 20));
}

void parse(const std::uint8_t* data, std::size_t size)
{
    CBuffer buffer;
    buffer.OpenMemory(data, static_cast<long>(size), CBuffer::Read_Mode);
    const CFileHeader header(&buffer);
    require(buffer.Tell() >= 0 && buffer.Tell() <= buffer.Size());
    checkFields(header, data, size);
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    parse(data, size);
    // The same behind a right id: else nearly every input would end there.
    std::vector<std::uint8_t> withId{arj::headerId & 0xFF, arj::headerId >> 8};
    withId.insert(withId.end(), data, data + size);
    parse(withId.data(), withId.size());
    return 0;
}
