#include "tests/realwindow/Picture.h"

#include "platform/win32/Handles.h"
#include "tests/scenario/Scenario.h"

namespace quorvel::scenario {

namespace {

/// The pixels of a bitmap that is selected nowhere.
Picture pixelsOf(HBITMAP bitmap, int width, int height) {
    BITMAPINFO information{};
    information.bmiHeader.biSize = sizeof information.bmiHeader;
    information.bmiHeader.biWidth = width;
    information.bmiHeader.biHeight = -height;  // from the top
    information.bmiHeader.biPlanes = 1;
    information.bmiHeader.biBitCount = 32;
    information.bmiHeader.biCompression = BI_RGB;
    std::vector<std::uint32_t> rows(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
    const WindowDC screen(nullptr);
    if (GetDIBits(screen.get(), bitmap, 0, static_cast<UINT>(height), rows.data(), &information,
                  DIB_RGB_COLORS) == 0)
        throw ScenarioError("the pixels of a bitmap cannot be read");
    constexpr std::uint32_t colourBits = 0xFFFFFF;
    Picture picture(width, height);
    std::size_t next = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) picture.set(x, y, rows[next++] & colourBits);
    return picture;
}

}  // namespace

Picture pictureOf(HDC source, int x, int y, int width, int height) {
    const UniqueDC memory(CreateCompatibleDC(source));
    const UniqueBitmap bitmap(CreateCompatibleBitmap(source, width, height));
    {
        const SelectedObject selected(memory.get(), bitmap.get());
        BitBlt(memory.get(), 0, 0, width, height, source, x, y, SRCCOPY);
    }
    return pixelsOf(bitmap.get(), width, height);
}

Picture pictureOf(HWND window, int x, int y, int width, int height) {
    const WindowDC source(window);
    return pictureOf(source.get(), x, y, width, height);
}

Picture loadPicture(const std::filesystem::path& file) {
    const UniqueBitmap bitmap(static_cast<HBITMAP>(LoadImageW(
        nullptr, file.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
    BITMAP size{};
    if (!bitmap || GetObjectW(bitmap.get(), sizeof size, &size) == 0)
        throw ScenarioError("cannot load " + file.filename().string());
    return pixelsOf(bitmap.get(), size.bmWidth, size.bmHeight);
}

bool showsAt(const Picture& whole, int x, int y, const Picture& part) {
    return showsAt(whole, x, y, part, 0, 0, part.width(), part.height());
}

bool showsAt(const Picture& whole, int x, int y, const Picture& other, int otherX, int otherY,
             int width, int height) {
    if (!whole.contains(x, y, width, height) || !other.contains(otherX, otherY, width, height))
        return false;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            if (whole.at(x + column, y + row) != other.at(otherX + column, otherY + row))
                return false;
    return true;
}

}  // namespace quorvel::scenario
