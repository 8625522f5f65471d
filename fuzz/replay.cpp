// Runs a target on every file of the folders and files named on the command line, or, with
// --random BYTES [SEED], on one input of that many random bytes, and tells what memory that took.

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "base/arena.h"
#include "fuzz/fuzz.h"

namespace {

namespace fs = std::filesystem;

int files_run;

void bytes_run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const u8*>(bytes.data()), bytes.size());
}

void file_run(const fs::path& path) {
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    std::ifstream file(path, std::ios::binary);
    bytes_run({std::istreambuf_iterator<char>(file), {}});
    files_run += 1;
}

void random_run(std::size_t size, u64 seed) {
    std::mt19937_64 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    bytes_run(bytes);
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%zu random bytes: %lld bytes of the persistent arena, %ld KiB at most\n", size,
                static_cast<long long>(arenas[arena_persistent].offset), usage.ru_maxrss);
}

}  // namespace

int main(int argument_count, char** arguments) {
    if (argument_count > 2 && std::string(arguments[1]) == "--random") {
        random_run(std::strtoull(arguments[2], nullptr, 10),
                   argument_count > 3 ? std::strtoull(arguments[3], nullptr, 10) : 1);
        return 0;
    }
    for (int i = 1; i < argument_count; ++i) {
        if (!fs::is_directory(arguments[i])) {
            file_run(arguments[i]);
            continue;
        }
        for (const auto& entry : fs::directory_iterator(arguments[i])) {
            file_run(entry.path());
        }
    }
    return files_run > 0 ? 0 : 1;
}
