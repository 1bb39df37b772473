// Image files of the zorcc tool: PNG (8 and 16 bit) and PPM/PGM.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace zorcc_tool {

// An interleaved image (1 = gray, 2 = gray + alpha, 3 = RGB, 4 = RGBA
// channels) of 8-bit or 16-bit samples, rows tightly packed.
template <typename T>
struct Raster {
    int width = 0;
    int height = 0;
    int channels = 3;
    std::vector<T> pixels;

    Raster() = default;
    Raster(int w, int h, int c) : width(w), height(h), channels(c), pixels(static_cast<std::size_t>(w) * h * c) {}
    // Row step in bytes, as the library takes it.
    int step() const { return width * channels * static_cast<int>(sizeof(T)); }
    T* row(int y) { return pixels.data() + static_cast<std::size_t>(y) * width * channels; }
    const T* row(int y) const { return pixels.data() + static_cast<std::size_t>(y) * width * channels; }
    T* data() { return pixels.data(); }
    const T* data() const { return pixels.data(); }
};

using Image8 = Raster<std::uint8_t>;
using Image16 = Raster<std::uint16_t>;

// An image of either sample depth: `depth` says which member holds it.
struct Picture {
    int depth = 8;
    Image8 i8;
    Image16 i16;

    Picture() = default;
    explicit Picture(Image8 img) : depth(8), i8(std::move(img)) {}
    explicit Picture(Image16 img) : depth(16), i16(std::move(img)) {}
    int width() const { return depth == 8 ? i8.width : i16.width; }
    int height() const { return depth == 8 ? i8.height : i16.height; }
    int channels() const { return depth == 8 ? i8.channels : i16.channels; }
};

// A file written under a temporary name (path + ".part") and renamed into
// place by commit(); destroyed without commit() it removes the temporary, so
// that a failed write never leaves a partial or a stale half-written file.
class AtomicFile {
public:
    explicit AtomicFile(std::string path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    FILE* get() const { return file_; }
    void write(const void* data, std::size_t len);
    void commit();
    const std::string& path() const { return path_; }

private:
    std::string path_, tmp_;
    FILE* file_ = nullptr;
};

// Lower-case extension of a path without the dot ("" if none).
std::string extensionOf(const std::string& path);

// Writes a PNG through a temporary file renamed into place. Throws
// std::runtime_error.
void writePng(const std::string& path, const Image8& img);
void writePng(const std::string& path, const Image16& img);
void writePng(const std::string& path, const Picture& pic);

// Reads an 8- or 16-bit PNG (palette and low-depth gray expanded to 8 bits,
// transparency to an alpha channel). Throws std::runtime_error with a
// message that names the file.
Picture readPng(const std::string& path);

// Binary (P5/P6) and plain (P2/P3) PGM/PPM; maxval 255 gives 8-bit samples,
// 65535 16-bit ones, other values are rescaled to the nearer of the two.
Picture readPnm(const std::string& path);
// Writes P5 (one channel) or P6 (three channels), maxval 255 or 65535.
void writePnm(const std::string& path, const Picture& pic);

// Whether a path names an image file the tool reads and writes as a picture
// (png, ppm, pgm, pnm).
bool isImagePath(const std::string& path);
Picture readImage(const std::string& path);
void writeImage(const std::string& path, const Picture& pic);

// Channel helpers: any picture as RGB (gray replicated, alpha dropped); the
// alpha channel (if any) is returned separately.
Picture toRgb(const Picture& pic);
// 8-bit samples widened to 16 bits (v * 257) or 16-bit ones narrowed
// ((v * 255 + 32767) / 65535).
Image16 widen(const Image8& img);
Image8 narrow(const Image16& img);

}  // namespace zorcc_tool
