#pragma once

#include <vector>

#include "assets/tool/Picture.h"

namespace quorvel::art {

struct Point {
    double x = 0;
    double y = 0;
};

/// The area inside some closed lines, and all that is no farther from them than `margin`. What two
/// of them enclose is outside again: a hole.
struct Shape {
    std::vector<std::vector<Point>> outlines;
    double margin = 0;
    Pixel colour;

    bool covers(Point place) const;
};

/// A square picture of shapes, each over those before it. `field` is the length of a side in the
/// shapes' measure, `size` in pixels. Edges are smooth: a pixel is the mean of what lies under it.
Picture drawShapes(const std::vector<Shape>& shapes, double field, int size);

}  // namespace quorvel::art
