// SPDX-License-Identifier: MIT
// Packs any bytes, by the method that the first byte chooses, and unpacks them again.
#include "dictionary/unpacking/decode.h"
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "lexicon/packing/arjmember.h"

using namespace teskel::fuzz;

namespace
{
constexpr qsizetype headSize = 2;

// Few inputs are as long as a record: the second byte says how often one is repeated, and each
// time a byte of it is another.
std::string content(const QByteArray& bytes)
{
    const int times = 1 + (static_cast<quint8>(bytes.at(1)) & 31);
    std::string text;
    for (int time = 0; time < times; ++time) {
        const std::size_t begin = text.size();
        text.append(bytes.constData() + headSize, bytes.constData() + bytes.size());
        if (time > 0 && text.size() > begin)
            text[begin + static_cast<std::size_t>(time) % (text.size() - begin)] ^= 1;
    }
    return text.substr(0, teskel::arj::maxUncompressedSize);
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (bytes.size() < headSize)
        return 0;
    const std::string text = content(bytes);
    teskel::ArjEncoder encoder((bytes.at(0) & 3) + 1);
    const std::string member = teskel::ArjMember::pack(text, encoder);
    teskel::MemberBlock block;
    require(teskel::decodeMember(member.data(), member.size(), block) == teskel::MemberStatus::Ok);
    require(std::string_view(block.data.get(), block.size) == text);
    return 0;
}
