// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/archivelibrary.h"

#include <dlfcn.h>

namespace teskel
{

namespace
{

/// Looks functions up; remembers whether one was missing.
class Functions
{
public:
    explicit Functions(void* library)
        : _library(library)
    {
    }

    template<typename Function>
    void find(const char* name, Function& function)
    {
        function = reinterpret_cast<Function>(_library ? ::dlsym(_library, name) : nullptr);
        _areAllThere = _areAllThere && function;
    }

    bool areAllThere() const { return _areAllThere; }

private:
    void* _library;
    bool _areAllThere = true;
};

bool load(ArchiveLibrary& library)
{
    // Stays loaded, as a library does that a program is linked with.
    Functions functions(::dlopen(TESKEL_LIBARCHIVE, RTLD_NOW | RTLD_LOCAL));
    functions.find("archive_errno", library.errorNumber);
    functions.find("archive_read_data", library.readData);
    functions.find("archive_read_free", library.readFree);
    functions.find("archive_read_new", library.readNew);
    functions.find("archive_read_next_header", library.readNextHeader);
    functions.find("archive_read_open", library.readOpen);
    functions.find("archive_read_support_filter_xz", library.readSupportFilterXz);
    functions.find("archive_read_support_filter_zstd", library.readSupportFilterZstd);
    functions.find("archive_read_support_format_empty", library.readSupportFormatEmpty);
    functions.find("archive_read_support_format_raw", library.readSupportFormatRaw);
    functions.find("archive_set_error", library.setError);
    return functions.areAllThere();
}

} // namespace

const ArchiveLibrary* ArchiveLibrary::get()
{
    static ArchiveLibrary library;
    static const bool isLoaded = load(library);
    return isLoaded ? &library : nullptr;
}

} // namespace teskel
