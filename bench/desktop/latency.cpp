// Presses F1 in a window again and again and says how long it took until the middle of the window
// changed, in milliseconds: "median 12.3, most 20.1".
//
//     quorrel_latency WINDOW

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using clock_type = std::chrono::steady_clock;

constexpr int presses = 41;
constexpr auto rest = std::chrono::microseconds(203'700);  // no multiple of a frame
constexpr auto patience = std::chrono::seconds(2);

Display* display;
Window window;

// What a few pixels in the middle of the window show.
std::string middle() {
    constexpr int side = 8;
    XWindowAttributes at = {};
    XGetWindowAttributes(display, window, &at);
    XImage* image = XGetImage(display, window, at.width / 2, at.height / 2 - side, side, side,
                              AllPlanes, ZPixmap);
    std::string pixels(image->data, static_cast<std::size_t>(image->bytes_per_line * side));
    XDestroyImage(image);
    return pixels;
}

void key_send(int type) {
    XEvent event = {};
    event.xkey.type = type;
    event.xkey.window = window;
    event.xkey.root = DefaultRootWindow(display);
    event.xkey.same_screen = True;
    event.xkey.keycode = XKeysymToKeycode(display, XK_F1);
    XSendEvent(display, window, True, type == KeyPress ? KeyPressMask : KeyReleaseMask, &event);
    XFlush(display);
}

// Milliseconds from a press to its picture; the patience where none comes.
double press() {
    std::string before = middle();
    clock_type::time_point begin = clock_type::now();
    key_send(KeyPress);
    while (middle() == before && clock_type::now() - begin < patience) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    std::chrono::duration<double, std::milli> taken = clock_type::now() - begin;
    key_send(KeyRelease);
    return taken.count();
}

}  // namespace

int main(int argc, char** argv) {
    display = XOpenDisplay(nullptr);
    if (argc != 2 || display == nullptr) {
        std::fprintf(stderr, "usage: quorrel_latency WINDOW, on a display\n");
        return EXIT_FAILURE;
    }
    window = std::strtoul(argv[1], nullptr, 0);
    std::vector<double> taken(presses);
    for (double& one : taken) {
        one = press();
        std::this_thread::sleep_for(rest);
    }
    std::sort(taken.begin(), taken.end());
    std::printf("median %.1f, most %.1f\n", taken[presses / 2], taken.back());
    return EXIT_SUCCESS;
}
