#include "support/kernel_harness.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace zt {

PlacedBytes::PlacedBytes(std::size_t n, Placement where, int offset) : n_(n) {
    if (where == kAgainstGuardPage) {
        const std::size_t page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t dataPages = (n + page - 1) / page;
        mapBytes_ = (dataPages + 1) * page;
        map_ = mmap(nullptr, mapBytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (map_ == MAP_FAILED) std::abort();
        std::uint8_t* guard = static_cast<std::uint8_t*>(map_) + dataPages * page;
        if (mprotect(guard, page, PROT_NONE) != 0) std::abort();
        data_ = guard - n;
    } else {
        // A block of exactly offset + n bytes: the row ends where the block
        // ends, so the address sanitizer reports a read one byte too far.
        void* block = nullptr;
        if (posix_memalign(&block, 64, static_cast<std::size_t>(offset) + n) != 0) std::abort();
        heap_ = static_cast<std::uint8_t*>(block);
        data_ = heap_ + offset;
    }
}

PlacedBytes::~PlacedBytes() {
    if (map_ != nullptr) munmap(map_, mapBytes_);
    std::free(heap_);
}

std::vector<zor::cpu::Target> vectorTargets() {
    std::vector<zor::cpu::Target> out;
    for (zor::cpu::Target t : zor::cpu::available())
        if (t != zor::cpu::kScalar) out.push_back(t);
    const char* only = std::getenv("ZORCC_TEST_TARGETS");
    if (only != nullptr && std::string(only) == "best" && out.size() > 1) out.erase(out.begin(), out.end() - 1);
    return out;
}

void fillExhaustive(std::uint8_t* const planes[], int planeCount, int samplesPerPixel, int sampleBytes,
                    std::size_t pixels) {
    for (std::size_t i = 0; i < pixels; ++i) {
        if (sampleBytes == 2) {
            const std::uint16_t v = static_cast<std::uint16_t>(i);
            std::memcpy(planes[0] + 2 * i, &v, 2);
        } else if (planeCount == 3) {
            for (int k = 0; k < 3; ++k) planes[k][i] = static_cast<std::uint8_t>(i >> (16 - 8 * k));
        } else {
            for (int k = 0; k < 3; ++k)
                planes[0][i * samplesPerPixel + k] = static_cast<std::uint8_t>(i >> (16 - 8 * k));
        }
    }
}

namespace detail {

std::string describe(zor::cpu::Target t, std::size_t width, PlacedBytes::Placement where, int offset) {
    std::ostringstream s;
    s << zor::cpu::name(t) << ", width " << width
      << (where == PlacedBytes::kAgainstGuardPage ? ", row end against a guard page" : ", start offset ")
      << (where == PlacedBytes::kAgainstGuardPage ? std::string() : std::to_string(offset));
    return s.str();
}

}  // namespace detail
}  // namespace zt
