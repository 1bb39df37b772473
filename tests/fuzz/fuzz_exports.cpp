// libFuzzer target over every exported image function. The input chooses the
// function, the size (below the minimum, one row or column, odd, wide), per
// image the step (exact, padded, negative from the last row, zero), the
// function's values (NaN and infinities, out-of-range integers), the team
// size, the CPU target and now and then a null pointer. Buffers have exactly
// the size that the arguments address (AddressSanitizer reports one byte
// past them). A call must not change its sources, must not write outside its
// region (row padding, the alpha of AC4 outputs) and must write nothing
// when it fails; at a vector target it must give the scalar target's result.
#include "core/cpu.h"
#include "support/call_harness.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int pick(zt::Choices& c, const int* set, int n, int randomTop) {
    const std::uint32_t k = c.take(static_cast<std::uint32_t>(n + 1));
    return k < static_cast<std::uint32_t>(n) ? set[k] : 1 + static_cast<int>(c.take(static_cast<std::uint32_t>(randomTop)));
}

[[noreturn]] void fail(const zt::Call& call, const std::string& what) {
    std::fprintf(stderr, "\n%s\n  %s\n", call.describeArgs().c_str(), what.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto& table = zor::describe::all();
    static const std::vector<zor::cpu::Target> targets = zor::cpu::available();
    static const int widths[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 127, 129, 255, 257, 1023, 4099};
    static const int heights[] = {-1, 0, 1, 2, 3, 4, 5, 7, 8, 9, 16, 17, 33};

    zt::Choices c(data, size);
    const zor::describe::Function& f = table[c.take(static_cast<std::uint32_t>(table.size()))];
    ZoriSize roi{pick(c, widths, sizeof(widths) / sizeof(int), 300), pick(c, heights, sizeof(heights) / sizeof(int), 40)};
    if (roi.width > 0 && roi.height > 0 && static_cast<long long>(roi.width) * roi.height > (1 << 17))
        roi.height = (1 << 17) / roi.width;
    int team = 1 + static_cast<int>(c.take(4));
    const zor::cpu::Target target = targets[c.take(static_cast<std::uint32_t>(targets.size()))];

    zt::Call call(f, roi, c);
    // Rows of an output with a zero step are one row: with several threads
    // the last writer wins, so such calls run on one thread.
    for (const zt::Plane& p : call.planes())
        if (p.written && p.step == 0 && p.rows > 1) team = 1;
    const zt::Call before = call;
    zt::Call scalar = call;
    threads_omp_of_n_zor = team;
    zor::cpu::force(target);
    const ZorStatus st = call.run();
    const std::string err = call.verify(before, st);
    if (!err.empty()) fail(call, err);
    if (target != zor::cpu::kScalar) {
        zor::cpu::force(zor::cpu::kScalar);
        const ZorStatus ref = scalar.run();
        if (ref != st) fail(call, "status " + std::to_string(st) + " at " + zor::cpu::name(target) + ", " + std::to_string(ref) + " at scalar");
        const int k = call.firstDifferentPlane(scalar);
        if (k >= 0) {
            const auto &a = call.planes()[k].bytes, &b = scalar.planes()[k].bytes;
            std::size_t i = 0;
            while (a[i] == b[i]) ++i;
            // The aligned 32-bit word around it, as bits.
            std::uint32_t wa = 0, wb = 0;
            const std::size_t w = i / 4 * 4;
            if (w + 4 <= a.size()) std::memcpy(&wa, &a[w], 4), std::memcpy(&wb, &b[w], 4);
            char words[64];
            std::snprintf(words, sizeof words, " (words %08x, %08x)", wa, wb);
            fail(call, "plane " + std::to_string(k) + " byte " + std::to_string(i) + " differs between " +
                           zor::cpu::name(target) + " and scalar" + words);
        }
    }
    return 0;
}
