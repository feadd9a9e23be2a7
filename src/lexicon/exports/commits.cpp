// SPDX-License-Identifier: MIT
#include "lexicon/exports/commits.h"

#include "lexicon/file/outputtarget.h"
#include "lexicon/file/pendingfile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;

/// A second name of what was there, by which it can be put back. File systems without hard links
/// have none.
class Before
{
public:
    explicit Before(const std::string& target)
    {
        std::string reason;
        if (!outputtarget::follow(target, _real, reason))
            return;
        _wasThere = ::access(_real.c_str(), F_OK) == 0;
        _kept = _real + ".old" + std::to_string(::getpid());
        if (!_wasThere || ::link(_real.c_str(), _kept.c_str()) != 0)
            _kept.clear();
    }
    Before(const Before&) = delete;
    Before& operator=(const Before&) = delete;
    ~Before()
    {
        if (!_kept.empty())
            ::unlink(_kept.c_str());
    }

    /// The name is free, if what had it can be put back; its permissions go to `file`.
    void removeFor(const PendingFile& file)
    {
        struct stat status = {};
        if (_kept.empty() || ::stat(_kept.c_str(), &status) != 0)
            return;
        (void)::chmod(file.path().c_str(), status.st_mode & permissions);
        ::unlink(_real.c_str());
    }

    void putBack()
    {
        if (!_kept.empty() && std::rename(_kept.c_str(), _real.c_str()) == 0)
            _kept.clear();
        else if (!_wasThere)
            ::unlink(_real.c_str());
    }

private:
    std::string _real;
    std::string _kept;
    bool _wasThere = false;
};

bool isMadeToLast(PendingFile& file, std::string& error)
{
    if (!file.flush(error))
        return false;
    const int descriptor = ::open(file.path().c_str(), O_RDONLY | O_CLOEXEC);
    const bool isDone = descriptor >= 0 && ::fsync(descriptor) == 0;
    if (!isDone)
        error = "cannot write " + file.target() + ": " + std::strerror(errno);
    if (descriptor >= 0)
        ::close(descriptor);
    return isDone;
}

} // namespace

bool commitTogether(const std::vector<PendingFile*>& files, std::string& error)
{
    for (PendingFile* file : files) {
        if (!isMadeToLast(*file, error))
            return false;
    }
    std::vector<std::unique_ptr<Before>> before;
    before.reserve(files.size());
    for (const PendingFile* file : files)
        before.push_back(std::make_unique<Before>(file->target()));
    before.back()->removeFor(*files.back());
    for (size_t done = 0; done < files.size(); ++done) {
        if (files[done]->commit(error))
            continue;
        before.back()->putBack();
        while (done > 0)
            before[--done]->putBack();
        return false;
    }
    return true;
}

} // namespace teskel
