#pragma once

#include <csignal>

#include <sys/resource.h>

namespace murbo {

/// A limit on the size of files, in bytes, as long as this lives: it stands in for a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t most) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{most, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    rlimit before{};
    void (*handler)(int);
};

}
