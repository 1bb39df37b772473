// Image files of the zorcc tool.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorcc_tool {

// An 8-bit interleaved image (1 = gray, 3 = RGB, 4 = RGBA channels), tightly packed.
struct Image8 {
    int width = 0;
    int height = 0;
    int channels = 3;
    std::vector<std::uint8_t> pixels;

    Image8() = default;
    Image8(int w, int h, int c) : width(w), height(h), channels(c), pixels(static_cast<std::size_t>(w) * h * c) {}
    int step() const { return width * channels; }
    std::uint8_t* row(int y) { return pixels.data() + static_cast<std::size_t>(y) * step(); }
    const std::uint8_t* row(int y) const { return pixels.data() + static_cast<std::size_t>(y) * step(); }
};

// Writes a PNG through a temporary file renamed into place, so that a failed
// write never leaves a partial file behind. Throws std::runtime_error.
void writePng(const std::string& path, const Image8& img);

}  // namespace zorcc_tool
