#pragma once

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

// As on a full disk, no file of this process grows beyond this size; RLIM_INFINITY ends it.
inline bool limitFileSize(rlim_t bytes)
{
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = std::min(bytes, limit.rlim_max);
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}
