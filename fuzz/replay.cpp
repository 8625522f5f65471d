// Runs a target on every file of the folders and files named on the command line.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/fuzz.h"

namespace {

namespace fs = std::filesystem;

int files_run;

void file_run(const fs::path& path) {
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const u8*>(bytes.data()), bytes.size());
    files_run += 1;
}

}  // namespace

int main(int argument_count, char** arguments) {
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
