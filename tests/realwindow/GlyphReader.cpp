#include "tests/realwindow/GlyphReader.h"

#include <array>

#include "tests/scenario/Driver.h"

namespace quorvel::scenario {

namespace {

constexpr std::array glyphFiles{
    "0.bmp",  "1.bmp",  "2.bmp",  "3.bmp",  "4.bmp",  "5.bmp",  "6.bmp",  "7.bmp",  "8.bmp",
    "9.bmp",  "A.bmp",  "B.bmp",  "C.bmp",  "D.bmp",  "E.bmp",  "F.bmp",  "DP.bmp", "00.bmp",
    "11.bmp", "22.bmp", "33.bmp", "44.bmp", "55.bmp", "66.bmp", "77.bmp", "88.bmp", "99.bmp",
    "_.bmp",  "__.bmp", "AA.bmp", "BB.bmp", "CC.bmp", "DD.bmp", "EE.bmp", "FF.bmp"};
static_assert(glyphFiles.size() == Canvas::glyphCount);

}  // namespace

GlyphReader::GlyphReader(const std::filesystem::path& folder, CanvasSize size)
    : gridGround_(loadPicture(folder / (size == CanvasSize::Wide ? "Graph.bmp" : "GraphS.bmp"))),
      bottomGround_(loadPicture(
          folder / (size == CanvasSize::Wide ? "GraphBottom.bmp" : "GraphBottomS.bmp"))) {
    for (const char* file : glyphFiles) glyphs_.push_back(loadPicture(folder / file));
}

int GlyphReader::glyphAt(const Picture& shown, int left, int top, Surface surface, int x,
                         int y) const {
    for (std::size_t glyph = 0; glyph < glyphs_.size(); ++glyph)
        if (showsAt(shown, left + x, top + y, glyphs_[glyph])) return static_cast<int>(glyph);
    const Picture& ground = surface == Surface::Grid ? gridGround_ : bottomGround_;
    const bool bare =
        showsAt(shown, left + x, top + y, ground, x, y, Canvas::glyphWidth, Canvas::glyphHeight);
    return bare ? Driver::bareCanvas : Driver::unknownGlyph;
}

}  // namespace quorvel::scenario
