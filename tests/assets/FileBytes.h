#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

namespace quorvel {

/// The bytes of a file that was made for the program's folder; a missing one fails the test.
inline std::string fileBytes(const std::string& name) {
    std::ifstream stream(std::filesystem::path(QUORVEL_ASSETS_FOLDER) / name, std::ios::binary);
    EXPECT_TRUE(stream) << name << " is missing";
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline int byteAt(const std::string& bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes.at(place));
}

/// Four bytes, the lowest first.
inline int numberAt(const std::string& bytes, std::size_t place) {
    return byteAt(bytes, place) | byteAt(bytes, place + 1) << 8 | byteAt(bytes, place + 2) << 16 |
           byteAt(bytes, place + 3) << 24;
}

}  // namespace quorvel
