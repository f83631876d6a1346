#include "CAllocationMeter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_held{0};
std::atomic<std::size_t> g_peak{0};
std::atomic<std::size_t> g_base{0};

// Each block carries its size in a header of the strictest fundamental alignment.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* Allocate(std::size_t size)
{
    void* raw = std::malloc(size + kHeader);
    if (raw == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(raw) = size;
    const std::size_t held = g_held.fetch_add(size) + size;
    std::size_t peak = g_peak.load();
    while (held > peak && !g_peak.compare_exchange_weak(peak, held)) {}
    return static_cast<char*>(raw) + kHeader;
}

void Release(void* block)
{
    if (block == nullptr)
        return;
    void* raw = static_cast<char*>(block) - kHeader;
    g_held.fetch_sub(*static_cast<std::size_t*>(raw));
    std::free(raw);
}

} // namespace

void CAllocationMeter::Start()
{
    g_base = g_held.load();
    g_peak = g_base.load();
}

std::size_t CAllocationMeter::PeakSinceStart()
{
    return g_peak.load() - g_base.load();
}

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
void operator delete(void* block) noexcept
{
    Release(block);
}
void operator delete[](void* block) noexcept
{
    Release(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    Release(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    Release(block);
}
