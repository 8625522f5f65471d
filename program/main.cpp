#include "program/frame.h"

int main() {
    program_start();
    while (program_frame()) {}
    program_end();
    return 0;
}
