#include "platform/directory.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/common/regular_file.h"

namespace {

namespace fs = std::filesystem;

str str_of(const fs::path& path) {
    const std::string& text = path.native();
    return str_copy({text.data(), static_cast<i64>(text.size())});
}

// An environment variable that names a place; empty for anything else.
fs::path absolute_variable(const char* name) {
    const char* value = std::getenv(name);
    fs::path path = value != nullptr ? value : "";
    return path.is_absolute() ? path : fs::path();
}

}  // namespace

str directory_of_program() {
    std::error_code error;
    return str_of(fs::read_symlink("/proc/self/exe", error).parent_path());
}

str directory_of_user(str name) {
    fs::path data = absolute_variable("XDG_DATA_HOME");
    if (data.empty()) {
        fs::path home = absolute_variable("HOME");
        data = home.empty() ? home : home / ".local/share";
    }
    return data.empty() ? str() : str_of(data / path_text(name));
}

bool directory_exists(str path) {
    std::error_code error;
    return fs::is_directory(path_text(path), error);
}

bool directory_enter(str path) {
    std::error_code error;
    fs::create_directories(path_text(path), error);
    fs::current_path(path_text(path), error);
    return !error;
}

bool directory_is_entered(str path) {
    std::error_code error;
    return fs::equivalent(path_text(path), ".", error);
}

str path_absolute(str path) {
    std::error_code error;
    fs::path absolute = fs::absolute(path_text(path), error);
    return error ? path : str_of(absolute);
}
