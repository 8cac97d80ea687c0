#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include <windows.h>

namespace quorvel::scenario {

/// Pixels as 0xRRGGBB, row by row from the top.
class Picture {
  public:
    Picture(int width, int height)
        : width_(width),
          height_(height),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    int width() const { return width_; }
    int height() const { return height_; }
    bool contains(int x, int y, int width, int height) const {
        return x >= 0 && y >= 0 && x + width <= width_ && y + height <= height_;
    }
    std::uint32_t at(int x, int y) const { return pixels_[index(x, y)]; }
    void set(int x, int y, std::uint32_t colour) { pixels_[index(x, y)] = colour; }

    bool operator==(const Picture&) const = default;

  private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

/// A part of what a device context shows.
Picture pictureOf(HDC source, int x, int y, int width, int height);

/// A part of what a top-level window shows, from (x, y) of its client area on. What other windows
/// cover is black.
Picture pictureOf(HWND window, int x, int y, int width, int height);

/// A bitmap file. Throws ScenarioError when it cannot be read.
Picture loadPicture(const std::filesystem::path& file);

/// Whether `part` is what stands at (x, y) of the whole, or of another part of it.
bool showsAt(const Picture& whole, int x, int y, const Picture& part);
bool showsAt(const Picture& whole, int x, int y, const Picture& other, int otherX, int otherY,
             int width, int height);

}  // namespace quorvel::scenario
