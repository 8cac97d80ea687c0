#pragma once

#include <cstdint>
#include <vector>

namespace quorvel::art {

/// A colour of one pixel; `alpha` 0 is see-through, which only icons know.
struct Pixel {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    bool operator==(const Pixel&) const = default;
};

/// A rectangle of pixels, the top row first.
class Picture {
  public:
    Picture(int width, int height, Pixel pixel = {});

    int width() const { return width_; }
    int height() const { return height_; }

    /// Requires a place inside the picture.
    Pixel at(int x, int y) const { return pixels_[index(x, y)]; }
    /// What lies outside the picture is left out.
    void set(int x, int y, Pixel pixel);
    /// Fills columns left to right - 1 of rows top to bottom - 1.
    void fill(int left, int top, int right, int bottom, Pixel pixel);

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<Pixel> pixels_;
};

}  // namespace quorvel::art
