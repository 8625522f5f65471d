#pragma once

// What the fuzz targets share. A target is one function over bytes that anybody may have made; it
// must return from all of them, with every promise of the game kept.

#include <string>
#include <string_view>

#include "base/types.h"

// The target: libFuzzer calls it with what it makes up, the tests with each file of the corpus.
extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size);

// The program as it has started, before its first frame: every global at its start value, both
// arenas empty, no input. The arenas' memory, which is not cleared, and what the GPU holds are
// made once. The files are those of `files_keep`.
void fuzz_begin();

// Adds a file that ships to those of `files_keep`.
void fuzz_ship_file(const std::string& path);

// Says what is not so on standard error and aborts.
[[noreturn]] void fuzz_fail(const char* what);

// Fails when it does not hold.
inline void fuzz_expect(bool holds, const char* what) {
    if (!holds) {
        fuzz_fail(what);
    }
}

// The bytes of one execution, taken from the front. Behind the end there are zeros.
struct fuzz_input {
    fuzz_input(const u8* data, std::size_t size);

    u8 byte();
    // The bytes up to the next `stop` or the end; the stop is taken too.
    std::string_view until(char stop);

    std::string_view rest;
};
