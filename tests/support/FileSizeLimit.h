#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tally::test {

/// Lets no file grow beyond `bytes` while it lives, as on a disk that is full.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace tally::test
