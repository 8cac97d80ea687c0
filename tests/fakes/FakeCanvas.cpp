#include "tests/fakes/FakeCanvas.h"

#include <algorithm>
#include <stdexcept>

namespace quorvel {

namespace {

constexpr int plainBlank = 27;
constexpr int doubleBlank = 28;

std::size_t indexOf(Surface surface) {
    return surface == Surface::Grid ? 0 : 1;
}

}  // namespace

FakeCanvas::Picture::Picture(int pictureWidth, int pictureHeight)
    : width(pictureWidth),
      height(pictureHeight),
      pixels(static_cast<std::size_t>(pictureWidth * pictureHeight)) {}

bool FakeCanvas::Picture::contains(int x, int y) const {
    return x >= 0 && x < width && y >= 0 && y < height;
}

FakeCanvas::Pixel& FakeCanvas::Picture::at(int x, int y) {
    return pixels[static_cast<std::size_t>(y * width + x)];
}

const FakeCanvas::Pixel& FakeCanvas::Picture::at(int x, int y) const {
    return pixels[static_cast<std::size_t>(y * width + x)];
}

FakeCanvas::Pixel FakeCanvas::pixelOf(int glyph, int x, int y) {
    const bool plainColoured = glyph == plainBlank || glyph == doubleBlank || glyph == bare;
    return plainColoured ? Pixel{glyph, 0, 0} : Pixel{glyph, x, y};
}

void FakeCanvas::load(const std::filesystem::path&, CanvasSize size) {
    const int width = size == CanvasSize::Wide ? wideWidth : smallWidth;
    drawn_ = {Picture(width, gridHeight), Picture(width, bottomHeight)};
    shown_ = drawn_;
    size_ = size;
    loaded_ = true;
}

void FakeCanvas::release() {
    drawn_ = {};
    shown_ = {};
    loaded_ = false;
}

void FakeCanvas::copyGlyph(Surface surface, int glyph, int x, int y) {
    if (glyph < 0 || glyph >= glyphCount) throw std::logic_error("there is no such glyph");
    Picture& picture = drawn_[indexOf(surface)];
    for (int row = 0; row < glyphHeight; ++row)
        for (int column = 0; column < glyphWidth; ++column)
            if (picture.contains(x + column, y + row))
                picture.at(x + column, y + row) = pixelOf(glyph, column, row);
}

void FakeCanvas::show() {
    shown_ = drawn_;
}

int FakeCanvas::glyphAt(Surface surface, int x, int y) const {
    const Picture& picture = shown_[indexOf(surface)];
    if (!picture.contains(x, y) || !picture.contains(x + glyphWidth - 1, y + glyphHeight - 1))
        return unknown;
    const int glyph = picture.at(x, y).glyph;
    for (int row = 0; row < glyphHeight; ++row)
        for (int column = 0; column < glyphWidth; ++column)
            if (picture.at(x + column, y + row) != pixelOf(glyph, column, row)) return unknown;
    return glyph;
}

}  // namespace quorvel
