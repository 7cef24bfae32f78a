// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Code in which each kind of hardening shows: it is compiled as the library's is, and not run.

#include <cstddef>
#include <cstdlib>
#include <cstring>

extern "C" {

void use(void *buffer);

// An array of integers: only the strong stack protector guards it.
void guardedStack()
{
    int numbers[2];
    use(numbers);
}

// A frame of several pages: each has to be touched in its turn.
void largeFrame()
{
    char buffer[65536];
    use(buffer);
}

// A buffer whose size is known when the program runs, which level 3 checks.
void *checkedCopy(const void *from, std::size_t room, std::size_t size)
{
    void *to = std::malloc(room);
    return to ? std::memcpy(to, from, size) : to;
}

} // extern "C"
