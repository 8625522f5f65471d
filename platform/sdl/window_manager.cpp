#include "platform/sdl/window_manager.h"

#include <SDL_syswm.h>
#include <X11/Xatom.h>

namespace {

// Null where the window is none of X11.
Display* x11_display(SDL_Window* window) {
    SDL_SysWMinfo info = {};
    SDL_VERSION(&info.version);
    bool known = SDL_GetWindowWMInfo(window, &info) != SDL_FALSE;
    return known && info.subsystem == SDL_SYSWM_X11 ? info.info.x11.display : nullptr;
}

}  // namespace

// A window manager leaves the number of a window of its own at the root window.
bool window_manager_runs(SDL_Window* window) {
    Display* display = x11_display(window);
    if (display == nullptr) {
        return true;
    }
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display),
                       XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False), 0, 1, False,
                       XA_WINDOW, &type, &format, &count, &rest, &data);
    if (data != nullptr) {
        XFree(data);
    }
    return type == XA_WINDOW && count == 1;
}
