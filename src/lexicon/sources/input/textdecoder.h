// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct UConverter;

namespace teskel
{

/// Turns text of any encoding that ICU knows into UTF-8, in pieces of any size.
class TextDecoder
{
public:
    /// What stands for bytes that are no text in the encoding. It is no UTF-8, so whoever looks at
    /// the result sees them.
    static constexpr char undecodable = '\xFF';

    /// Whether there is an encoding of that name, such as "latin1", "utf-16le" or "windows-1252".
    static bool isKnown(const std::string& name);
    /// Whether it is a name of UTF-8.
    static bool isUtf8(const std::string& name);
    /// Whether ASCII takes one byte in it, as the parts of dictd and StarDict dictionaries need.
    static bool isOfBytes(const std::string& name);

    /// The encoding must be a known one. In "utf-16" and "utf-32" text without a byte-order mark
    /// the first piece tells which byte comes first.
    explicit TextDecoder(std::string name);

    /// Appends the next piece of a text, as UTF-8, to `text`.
    void decode(std::string_view bytes, std::string& text);
    /// Ends the text; what was begun and not ended is undecodable. The next one may follow.
    void finish(std::string& text);

private:
    struct Closer {
        void operator()(UConverter* converter) const;
    };

    void open(std::string_view head);
    void flush(bool mayGoOn, std::string& text);
    void convert(std::string_view bytes, bool isEnd, std::string& text);

    std::string _name;
    std::unique_ptr<UConverter, Closer> _converter;
    std::u16string _units; ///< converted, and not in the text yet
};

} // namespace teskel
