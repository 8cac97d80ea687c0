#include "assets/tool/Shapes.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace quorvel::art {
namespace {

constexpr int samples = 8;  // of a pixel, across and down

/// Calls `edge(from, to)` for each side of a closed line.
void forEachEdge(const std::vector<Point>& outline,
                 const std::function<void(Point from, Point to)>& edge) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
        edge(outline[i], outline[(i + 1) % outline.size()]);
    }
}

bool crossesRayToTheRight(Point from, Point to, Point place) {
    if ((from.y > place.y) == (to.y > place.y)) {
        return false;
    }
    return place.x < from.x + (place.y - from.y) / (to.y - from.y) * (to.x - from.x);
}

double distance(Point from, Point to, Point place) {
    const double width = to.x - from.x;
    const double height = to.y - from.y;
    const double along = ((place.x - from.x) * width + (place.y - from.y) * height) /
                         (width * width + height * height);
    const double nearest = std::clamp(along, 0.0, 1.0);
    return std::hypot(place.x - from.x - nearest * width, place.y - from.y - nearest * height);
}

/// Colours that are added up, each weighted with how far it covers.
class Mixture {
  public:
    void add(const Pixel& pixel) {
        red_ += pixel.red * pixel.alpha;
        green_ += pixel.green * pixel.alpha;
        blue_ += pixel.blue * pixel.alpha;
        alpha_ += pixel.alpha;
        ++count_;
    }

    Pixel mean() const {
        if (alpha_ == 0) {
            return {0, 0, 0, 0};
        }
        return {share(red_, alpha_), share(green_, alpha_), share(blue_, alpha_),
                share(alpha_, count_)};
    }

  private:
    static std::uint8_t share(int sum, int of) {
        return static_cast<std::uint8_t>((sum + of / 2) / of);
    }

    int red_ = 0;
    int green_ = 0;
    int blue_ = 0;
    int alpha_ = 0;
    int count_ = 0;
};

Pixel topmost(const std::vector<Shape>& shapes, Point place) {
    const auto top = std::find_if(shapes.rbegin(), shapes.rend(),
                                  [&](const Shape& shape) { return shape.covers(place); });
    return top == shapes.rend() ? Pixel{0, 0, 0, 0} : top->colour;
}

}  // namespace

bool Shape::covers(Point place) const {
    bool inside = false;
    bool near = false;
    for (const std::vector<Point>& outline : outlines) {
        forEachEdge(outline, [&](Point from, Point to) {
            inside = inside != crossesRayToTheRight(from, to, place);
            near = near || distance(from, to, place) < margin;
        });
    }
    return inside || near;
}

Picture drawShapes(const std::vector<Shape>& shapes, double field, int size) {
    Picture picture(size, size);
    const double step = field / size / samples;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            Mixture mixture;
            for (int down = y * samples; down < (y + 1) * samples; ++down) {
                for (int across = x * samples; across < (x + 1) * samples; ++across) {
                    mixture.add(topmost(shapes, {(across + 0.5) * step, (down + 0.5) * step}));
                }
            }
            picture.set(x, y, mixture.mean());
        }
    }
    return picture;
}

}  // namespace quorvel::art
