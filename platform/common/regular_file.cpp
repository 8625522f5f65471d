#include "platform/common/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file.h"

namespace {

std::string fallback;  // ends with "/"; empty for none

}  // namespace

void file_set_fallback(str directory) {
    fallback = path_text(directory);
    if (!fallback.empty()) {
        fallback += '/';
    }
}

std::string path_text(str path) {
    if (path.length <= 0) {
        return {};
    }
    std::string text(path.data, static_cast<std::size_t>(path.length));
    return text.find('\0') == std::string::npos ? text : std::string();
}

std::string path_for_reading(str path) {
    std::string text = path_text(path);
    bool elsewhere = !fallback.empty() && !text.empty() && text[0] != '/' &&
                     access(text.c_str(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR);
    return elsewhere ? fallback + text : text;
}

std::FILE* regular_file_open(str path, i64& size) {
    size = 0;
    // Without O_NONBLOCK a pipe would be waited for before it can be refused.
    int descriptor = open(path_for_reading(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        return nullptr;
    }
    struct stat status;
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor);
        return nullptr;
    }
    std::FILE* stream = fdopen(descriptor, "rb");
    if (stream == nullptr) {
        close(descriptor);
        return nullptr;
    }
    size = status.st_size;
    return stream;
}
