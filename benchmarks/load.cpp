// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <cstdio>

#include <dlfcn.h>

#if __has_include(<valgrind/callgrind.h>)
#    include <valgrind/callgrind.h>
#else
#    define CALLGRIND_START_INSTRUMENTATION
#    define CALLGRIND_STOP_INSTRUMENTATION
#    define CALLGRIND_ZERO_STATS
#endif

// load LIBRARY DEPENDENCY...: loads the library once all that it needs is loaded, for callgrind.
int main(int argc, char *argv[])
{
    for (int i = 2; i < argc; ++i) {
        if (!dlopen(argv[i], RTLD_LAZY | RTLD_GLOBAL))
            return std::fprintf(stderr, "%s\n", dlerror());
    }
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    const bool loaded = dlopen(argv[1], RTLD_LAZY | RTLD_GLOBAL);
    CALLGRIND_STOP_INSTRUMENTATION;
    return loaded ? 0 : std::fprintf(stderr, "%s\n", dlerror());
}
