// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace teskel
{

/// Looks over an XML document before it is parsed, for elements of more attributes than any has:
/// the parser compares each of them with all before it.
///
/// What it makes of a document holds as far as that is well-formed, and is in UTF-8 or ASCII.
class TagWatch
{
public:
    static constexpr int mostAttributes = 1000;

    /// Goes on with the next bytes. False once an element has more attributes.
    bool look(std::string_view bytes);
    /// The line where that was, from 1 on.
    uint64_t line() const { return _line; }

private:
    enum class State { Text, Tag, Comment, Characters, Instruction, Declaration };

    void take(char byte);
    void takeMarkup(char byte);
    void takeDeclaration(char byte);
    bool endsWith(std::string_view end) const;
    void enter(State state);

    State _state = State::Text;
    State _around = State::Text; ///< of a comment or an instruction: text or declaration
    uint32_t _last = 0;          ///< the last four bytes
    int _length = 0;             ///< of what was entered, as far as it matters
    char _quote = '\0';          ///< that is open in a tag or a declaration
    bool _isSubset = false;      ///< whether a declaration has come to declarations within it
    int _attributes = 0;
    uint64_t _line = 1;
};

} // namespace teskel
