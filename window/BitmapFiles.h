#pragma once

#include <array>
#include <string_view>

#include "core/ports/Canvas.h"

namespace quorvel {

/// The files of the glyphs in the program's folder, in the order of the glyphs' numbers.
inline constexpr std::array<std::string_view, Canvas::glyphCount> glyphFiles{
    "0.bmp",  "1.bmp",  "2.bmp",  "3.bmp",  "4.bmp",  "5.bmp",  "6.bmp",  "7.bmp",  "8.bmp",
    "9.bmp",  "A.bmp",  "B.bmp",  "C.bmp",  "D.bmp",  "E.bmp",  "F.bmp",  "DP.bmp", "00.bmp",
    "11.bmp", "22.bmp", "33.bmp", "44.bmp", "55.bmp", "66.bmp", "77.bmp", "88.bmp", "99.bmp",
    "_.bmp",  "__.bmp", "AA.bmp", "BB.bmp", "CC.bmp", "DD.bmp", "EE.bmp", "FF.bmp"};

/// The files of the two canvases of a layout.
struct CanvasFiles {
    std::string_view grid;
    std::string_view bottom;
};

constexpr CanvasFiles canvasFiles(CanvasSize size) {
    return size == CanvasSize::Wide ? CanvasFiles{"Graph.bmp", "GraphBottom.bmp"}
                                    : CanvasFiles{"GraphS.bmp", "GraphBottomS.bmp"};
}

}  // namespace quorvel
