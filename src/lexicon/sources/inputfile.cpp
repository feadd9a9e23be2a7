// SPDX-License-Identifier: MIT
#include "lexicon/sources/inputfile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace teskel
{

bool readWholeFile(const std::string& path, std::string& content, std::string& error)
{
    struct Closer {
        void operator()(std::FILE* file) const
        {
            if (file != stdin)
                std::fclose(file);
        }
    };
    const std::unique_ptr<std::FILE, Closer> file(path == "-" ? stdin
                                                              : std::fopen(path.c_str(), "rbe"));
    content.clear();
    if (file) {
        constexpr size_t step = size_t{1} << 18;
        size_t length = 0;
        size_t got = 0;
        do {
            content.resize(length + step);
            got = std::fread(content.data() + length, 1, step, file.get());
            length += got;
        } while (got > 0);
        content.resize(length);
    }
    if (!file || std::ferror(file.get())) {
        error = "cannot read " + path + ": " + std::strerror(errno);
        return false;
    }
    return true;
}

} // namespace teskel
