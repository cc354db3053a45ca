#include "live_memory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

// Every allocation of the program goes through here, with its size kept in front of it. One thread
// only: the measurements have no other.

namespace {

constexpr std::size_t header = alignof(std::max_align_t);

std::size_t live = 0;
std::size_t start = 0;
std::size_t peak = 0;
std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    void* const block = std::malloc(size + header);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *static_cast<std::size_t*>(block) = size;
    live += size;
    ++allocations;
    peak = std::max(peak, live);
    return static_cast<char*>(block) + header;
}

void operator delete(void* pointer) noexcept
{
    if (pointer != nullptr) {
        void* const block = static_cast<char*>(pointer) - header;
        live -= *static_cast<std::size_t*>(block);
        std::free(block);
    }
}

void operator delete(void* pointer, std::size_t) noexcept
{
    operator delete(pointer);
}

namespace bench {

void reset_peak_memory()
{
    start = live;
    peak = live;
}

std::size_t peak_memory()
{
    return peak - start;
}

std::size_t allocation_count()
{
    return allocations;
}

} // namespace bench
