// Libraries stay loaded until the end, so that the leak check can name the library of a leak.

#include <dlfcn.h>

int dlclose(void*) noexcept {
    return 0;
}
