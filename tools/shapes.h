#pragma once

// Convex shapes in the plane and whether they overlap.

#include <vector>

#include "base/point.h"

using shape = std::vector<point>;  // the corners of a convex polygon, in order

shape rectangle_shape(f64 left, f64 bottom, f64 right, f64 top);
// A regular polygon of 24 corners on the circle.
shape disc_shape(point centre, f64 radius);

// The smallest upright rectangle around all of them.
shape bounds_of(const std::vector<shape>& shapes);

// Whether they share more than their edges.
// Source: S. Gottschalk, M. C. Lin, D. Manocha, "OBBTree: a hierarchical structure for rapid
// interference detection" (1996), the separating axis test.
bool shapes_overlap(const shape& a, const shape& b);

bool any_overlaps(const shape& s, const std::vector<shape>& others);
bool any_overlaps(const std::vector<shape>& shapes, const std::vector<shape>& others);

// Whether all corners of `inner` lie in `outer`, an upright rectangle.
bool rectangle_holds(const shape& outer, const shape& inner);

f64 distance(point a, point b);
