// SPDX-License-Identifier: MIT
#include "lexicon/file/keylist.h"

#include "dictionary/wordindex.h"

namespace teskel
{

KeyList::KeyList(std::string_view bytes)
    : _bytes(bytes)
    , _isTopicIndex(bytes.starts_with(WordIndex::topicMark))
{
    for (std::size_t start = 0; !_isEnded;) {
        const std::size_t end = _bytes.find('\0', start);
        if (end == std::string::npos)
            return;
        _isEnded = end == start;
        if (!_isEnded)
            _offsets.push_back(static_cast<std::uint32_t>(start));
        start = end + 1;
    }
}

} // namespace teskel
