#include "platform/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

void standard_streams_open() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) < 0) {
            // The lowest free number is given. The wrong way round reading and writing still fail.
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
    std::signal(SIGXFSZ, SIG_IGN);
}
