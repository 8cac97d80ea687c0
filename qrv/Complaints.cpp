#include "qrv/Complaints.h"

#include <algorithm>
#include <cstdio>

namespace quorvel {

std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
    return text;
}

void complain(const std::string& problem) {
    std::fprintf(stderr, "qrv: %s\n", oneLine(problem).c_str());
}

}  // namespace quorvel
