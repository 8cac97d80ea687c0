#include "assets/tool/Picture.h"

#include <algorithm>

namespace quorvel::art {

Picture::Picture(int width, int height, Pixel pixel)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), pixel) {}

void Picture::set(int x, int y, Pixel pixel) {
    if (x >= 0 && x < width_ && y >= 0 && y < height_) {
        pixels_[index(x, y)] = pixel;
    }
}

void Picture::fill(int left, int top, int right, int bottom, Pixel pixel) {
    for (int y = std::max(top, 0); y < std::min(bottom, height_); ++y) {
        for (int x = std::max(left, 0); x < std::min(right, width_); ++x) {
            set(x, y, pixel);
        }
    }
}

}  // namespace quorvel::art
