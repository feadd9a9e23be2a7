// SPDX-License-Identifier: MIT
#include "lookup/dictionarytexts.h"

#include "dictionary/dictionary.h"

#include <array>
#include <vector>

namespace teskel
{

namespace
{

/// What `read` writes into a buffer; a read that fails leaves it empty.
template<typename Read>
QString textFrom(Read read)
{
    std::array<char, 512> buffer{};
    read(buffer.data(), static_cast<int>(buffer.size()));
    return QString::fromLatin1(buffer.data());
}

} // namespace

QString dictionaryName(Dictionary& dictionary)
{
    return textFrom([&](char* buffer, int size) { dictionary.getName(buffer, size); });
}

QString dictionaryDescription(Dictionary& dictionary)
{
    return textFrom([&](char* buffer, int size) { dictionary.getDescription(buffer, size); });
}

QString randomWord(Dictionary& dictionary)
{
    return textFrom([&](char* buffer, int size) { dictionary.getRandomWord(buffer, size); });
}

QString wordAt(Dictionary& dictionary, CursorPosition position)
{
    return textFrom([&](char* buffer, int size) {
        dictionary.getWord(position, buffer, static_cast<unsigned int>(size));
    });
}

std::optional<QString> articleAt(Dictionary& dictionary, CursorPosition position)
{
    std::array<char, 256> buffer{};
    auto size = static_cast<unsigned int>(buffer.size());
    if (dictionary.getDescription(position, buffer.data(), &size))
        return QString::fromLatin1(buffer.data());
    if (size == 0)
        return std::nullopt;

    std::vector<char> longBuffer(size);
    if (!dictionary.getDescription(position, longBuffer.data(), &size))
        return std::nullopt;
    return QString::fromLatin1(longBuffer.data());
}

} // namespace teskel
