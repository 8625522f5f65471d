#include "platform/maths.h"

#include <cmath>

f64 math_sin(f64 angle) {
    return std::sin(angle);
}

f64 math_cos(f64 angle) {
    return std::cos(angle);
}

f64 math_sqrt(f64 x) {
    return std::sqrt(x);
}

f64 math_floor(f64 x) {
    return std::floor(x);
}
