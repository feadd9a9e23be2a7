// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/scratchfile.h"
#include "lexicon/sources/input/rawfile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace teskel
{

/// Reads an input: as it is, or unpacked when gzip, dictzip, xz or zstd packed it, which its first
/// bytes tell.
///
/// What is wrong is told in `error` by the functions that return false.
class InputFile
{
public:
    /// The largest piece that read() and readLine() hand over, bytes: beyond any article.
    static constexpr uint64_t largestPiece = 4U << 20;

    InputFile() = default;

    /// Opens a file, once (path in the bytes of the file system), or the standard input for "-".
    bool open(const std::string& path, std::string& error);

    /// The name of the input for people.
    std::string name() const;
    /// Whether what is read is unpacked on the way.
    bool isPacked() const { return _unpacked != nullptr; }

    /// The first bytes of the data, at most `size`. Nothing may have been read before; they are
    /// still to be read.
    std::string_view head(size_t size);

    /// Goes on with the data, what head() has shown included, as the UTF-8 form of text in an
    /// encoding that TextDecoder knows. read() is not to be used then.
    void decodeAs(const std::string& encoding);

    /// Reads `size` bytes at `offset` of the unpacked data; fails when they are not all there. At
    /// the first time, what is packed is unpacked into a temporary file. Of the other functions
    /// that read, only head() may be used besides.
    bool read(uint64_t offset, uint64_t size, std::string& out, std::string& error);

    /// Reads the next piece of the data, empty at the end.
    bool readNext(std::string& out, std::string& error);

    /// Reads the next line without its end; `isEnd` tells that there is none. Lines may end with
    /// another sign than the line feed.
    bool readLine(std::string& line, bool& isEnd, std::string& error, char lineEnd = '\n');

    /// Reads the next `size` bytes behind a line, or as many as there are.
    bool readBytes(size_t size, std::string& bytes, std::string& error);

    /// Fails when the file changed since it was opened: what was read does not belong together.
    bool checkUnchanged(std::string& error) const;

private:
    bool unpackByLibrary(std::string& error);
    ByteStream& bytes();
    bool readStep(std::string& out);
    bool unpackWhole(std::string& error);
    bool readUnpacked(uint64_t offset, uint64_t size, std::string& out);
    bool fillWindow(size_t size, std::string& error);
    std::string reasonOfFailure() const;

    std::string _path;
    RawFile _file;
    std::unique_ptr<ByteStream> _unpacked; ///< null when the file is not packed
    std::unique_ptr<ByteStream> _decoded;  ///< null when its text is taken as it is
    bool _hasFailed = false;
    std::unique_ptr<ScratchFile> _whole; ///< the unpacked data, for read()
    uint64_t _wholeBytes = 0;
    std::string _window;   ///< what was unpacked and is still to be handed over
    size_t _lineBegin = 0; ///< place of the next line in the window
};

} // namespace teskel
