#include "tests/hostile/Limits.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

std::size_t bytesInUse = 0;
std::size_t mostBytesInUse = 0;

void* allocate(std::size_t size) {
    void* const memory = std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    bytesInUse += ::malloc_usable_size(memory);
    mostBytesInUse = std::max(mostBytesInUse, bytesInUse);
    return memory;
}

void release(void* memory) {
    if (memory != nullptr) bytesInUse -= ::malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

// All memory of the program that these are linked into comes from here.
void* operator new(std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}

namespace quorvel::hostile {

Meter::Meter() : start_(std::clock()), bytesBefore_(bytesInUse) {
    mostBytesInUse = bytesInUse;
}

double Meter::seconds() const {
    return static_cast<double>(std::clock() - start_) / CLOCKS_PER_SEC;
}

std::size_t Meter::mostBytes() const {
    return mostBytesInUse - bytesBefore_;
}

}  // namespace quorvel::hostile
