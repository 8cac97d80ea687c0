#include "platform/win32/GdiCanvas.h"

#include <cstddef>
#include <utility>

#include "window/BitmapFiles.h"
#include "window/CanvasPlaces.h"

namespace quorvel {

namespace {

constexpr COLORREF paper = RGB(255, 255, 255);

constexpr int widthOf(CanvasSize size) {
    return size == CanvasSize::Wide ? Canvas::wideWidth : Canvas::smallWidth;
}

UniqueBitmap blankBitmap(HDC context, int width, int height) {
    const WindowDC screen(nullptr);
    UniqueBitmap bitmap(::CreateCompatibleBitmap(screen.get(), width, height));
    const SelectedObject selection(context, bitmap.get());
    ::PatBlt(context, 0, 0, width, height, WHITENESS);
    return bitmap;
}

/// Fills the band of a row with what its blank glyph shows.
void fillBand(HDC target, int row, HDC blankGlyph) {
    ::StretchBlt(target, 0, row * rowPitch, Canvas::glyphWidth, rowPitch, blankGlyph, 0, 0,
                 Canvas::glyphWidth, Canvas::glyphHeight, SRCCOPY);
}

}  // namespace

GdiCanvas::Picture::Picture(const std::filesystem::path& file, int width, int height)
    : context_(::CreateCompatibleDC(nullptr)) {
    bitmap_.reset(static_cast<HBITMAP>(
        ::LoadImageW(nullptr, file.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE)));
    if (!bitmap_) bitmap_ = blankBitmap(context_.get(), width, height);
    selection_ = SelectedObject(context_.get(), bitmap_.get());
    // What the white of a bitmap of two colours becomes where it is copied to.
    ::SetBkColor(context_.get(), paper);
}

// Swapped, so that the old picture goes as a whole: a bitmap is let go while its context is there.
GdiCanvas::Picture& GdiCanvas::Picture::operator=(Picture&& other) noexcept {
    std::swap(context_, other.context_);
    std::swap(bitmap_, other.bitmap_);
    std::swap(selection_, other.selection_);
    return *this;
}

void GdiCanvas::load(const std::filesystem::path& programFolder, CanvasSize size) {
    const CanvasFiles files = canvasFiles(size);
    const int width = widthOf(size);
    grid_ = Drawing{.picture = Picture(programFolder / files.grid, width, gridHeight)};
    bottom_ = Drawing{.picture = Picture(programFolder / files.bottom, width, bottomHeight)};
    for (std::size_t glyph = 0; glyph < glyphDCs_.size(); ++glyph)
        glyphDCs_[glyph] = Picture(programFolder / glyphFiles[glyph], glyphWidth, glyphHeight);
}

void GdiCanvas::release() {
    grid_ = Drawing{};
    bottom_ = Drawing{};
    for (Picture& glyph : glyphDCs_) glyph = Picture();
}

void GdiCanvas::copyGlyph(Surface surface, int glyph, int x, int y) {
    Drawing& target = drawing(surface);
    ::StretchBlt(target.picture.get(), x, y, glyphWidth, glyphHeight,
                 glyphDCs_[static_cast<std::size_t>(glyph)].get(), 0, 0, glyphWidth, glyphHeight,
                 SRCCOPY);
    const RECT place{x, y, x + glyphWidth, y + glyphHeight};
    ::UnionRect(&target.drawn, &target.drawn, &place);
}

void GdiCanvas::show() {
    for (Drawing* shown : {&grid_, &bottom_}) {
        ::UnionRect(&shown->changed, &shown->changed, &shown->drawn);
        shown->drawn = RECT{};
    }
}

std::optional<RECT> GdiCanvas::takeChanged(Surface surface) {
    const RECT changed = std::exchange(drawing(surface).changed, RECT{});
    if (::IsRectEmpty(&changed) != 0) return std::nullopt;
    return changed;
}

void GdiCanvas::paint(Surface surface, HDC target, int left, int top, const RECT& area) const {
    ::BitBlt(target, left + area.left, top + area.top, area.right - area.left,
             area.bottom - area.top, drawing(surface).picture.get(), area.left, area.top, SRCCOPY);
}

RowBands GdiCanvas::rowBands() const {
    const auto blankOf = [this](GlyphSet set) {
        return glyphDCs_[static_cast<std::size_t>(glyph::blank(set))].get();
    };
    const UniqueDC context(::CreateCompatibleDC(nullptr));
    const UniqueBitmap bands = blankBitmap(context.get(), glyphWidth, 2 * rowPitch);
    {
        const SelectedObject selection(context.get(), bands.get());
        for (const int row : {0, 1})
            fillBand(context.get(), row, blankOf(canvas_places::rowSet(row)));
    }
    return {UniqueBrush(::CreatePatternBrush(bands.get())),
            ::GetPixel(blankOf(GlyphSet::Plain), 0, 0)};
}

}  // namespace quorvel
