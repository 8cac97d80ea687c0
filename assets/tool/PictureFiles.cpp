#include "assets/tool/PictureFiles.h"

#include <cstdint>
#include <fstream>
#include <stdexcept>

#include <png.h>

namespace quorvel::art {
namespace {

constexpr std::uint32_t fileHeaderSize = 14;
constexpr std::uint32_t infoHeaderSize = 40;
constexpr std::uint32_t iconHeaderSize = 6;
constexpr std::uint32_t iconEntrySize = 16;
constexpr int rowAlignment = 4;  // bytes, in .bmp and .ico alike

// Windows takes a picture of an icon as PNG, too; what is larger than this is much smaller so.
constexpr int largestPlainIcon = 48;

void put16(std::string& bytes, std::uint32_t value) {
    bytes += static_cast<char>(value & 0xFFU);
    bytes += static_cast<char>(value >> 8 & 0xFFU);
}

void put32(std::string& bytes, std::uint32_t value) {
    put16(bytes, value & 0xFFFFU);
    put16(bytes, value >> 16);
}

void putInfoHeader(std::string& bytes, int width, int height, std::uint32_t bitsPerPixel) {
    put32(bytes, infoHeaderSize);
    put32(bytes, static_cast<std::uint32_t>(width));
    put32(bytes, static_cast<std::uint32_t>(height));
    put16(bytes, 1);  // planes
    put16(bytes, bitsPerPixel);
    bytes.append(infoHeaderSize - 16, '\0');  // not compressed, everything else left open
}

void putBlueGreenRed(std::string& bytes, Pixel pixel) {
    bytes += static_cast<char>(pixel.blue);
    bytes += static_cast<char>(pixel.green);
    bytes += static_cast<char>(pixel.red);
}

/// One picture of an icon: its colours, then the mask of what is see-through, one bit a pixel.
std::string plainIconPicture(const Picture& picture) {
    std::string bytes;
    putInfoHeader(bytes, picture.width(), picture.height() * 2, 32);
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            putBlueGreenRed(bytes, picture.at(x, y));
            bytes += static_cast<char>(picture.at(x, y).alpha);
        }
    }
    for (int y = picture.height() - 1; y >= 0; --y) {
        std::string row((static_cast<std::size_t>(picture.width()) + 31) / 32 * rowAlignment, '\0');
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.at(x, y).alpha == 0) {
                char& byte = row[static_cast<std::size_t>(x) / 8];
                byte = static_cast<char>(static_cast<unsigned char>(byte) | 0x80U >> (x % 8));
            }
        }
        bytes += row;
    }
    return bytes;
}

std::string pngFile(const Picture& picture) {
    std::string colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            putBlueGreenRed(colours, picture.at(x, y));
            colours += static_cast<char>(picture.at(x, y).alpha);
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width());
    image.height = static_cast<png_uint_32>(picture.height());
    image.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, colours.data(), 0, nullptr) ==
        0) {
        throw std::runtime_error(image.message);
    }
    bytes.resize(size);
    return bytes;
}

std::string iconPicture(const Picture& picture) {
    return picture.width() <= largestPlainIcon ? plainIconPicture(picture) : pngFile(picture);
}

}  // namespace

std::string bitmapFile(const Picture& picture) {
    std::string rows;
    for (int y = picture.height() - 1; y >= 0; --y) {
        for (int x = 0; x < picture.width(); ++x) {
            putBlueGreenRed(rows, picture.at(x, y));
        }
        while (rows.size() % rowAlignment != 0) {
            rows += '\0';
        }
    }
    std::string bytes = "BM";
    put32(bytes, fileHeaderSize + infoHeaderSize + static_cast<std::uint32_t>(rows.size()));
    put32(bytes, 0);  // reserved
    put32(bytes, fileHeaderSize + infoHeaderSize);
    putInfoHeader(bytes, picture.width(), picture.height(), 24);
    return bytes + rows;
}

std::string iconFile(std::span<const Picture> pictures) {
    std::string bytes;
    put16(bytes, 0);  // reserved
    put16(bytes, 1);  // an icon, no cursor
    put16(bytes, static_cast<std::uint32_t>(pictures.size()));
    std::string bodies;
    for (const Picture& picture : pictures) {
        const std::string body = iconPicture(picture);
        bytes += static_cast<char>(picture.width());  // 0 for 256
        bytes += static_cast<char>(picture.height());
        put16(bytes, 0);  // no palette, reserved
        put16(bytes, 1);  // planes
        put16(bytes, 32);
        put32(bytes, static_cast<std::uint32_t>(body.size()));
        put32(bytes, iconHeaderSize + iconEntrySize * static_cast<std::uint32_t>(pictures.size()) +
                         static_cast<std::uint32_t>(bodies.size()));
        bodies += body;
    }
    return bytes + bodies;
}

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error(file.string() + " cannot be written");
    }
}

}  // namespace quorvel::art
