// Files of the zorcc tool: inputs and outputs (paths, standard input and
// output, FIFOs, devices), format detection, PNG (8 and 16 bit) and PPM/PGM.
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
    Raster(int w, int h, int c) { reshape(w, h, c); }
    // Gives the image a new shape, keeping its memory when it is big enough
    // (the samples are then left as they were, not cleared).
    void reshape(int w, int h, int c) {
        width = w, height = h, channels = c;
        pixels.resize(static_cast<std::size_t>(w) * h * c);
    }
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

// Containers the tool reads and writes. Pnm is binary PGM (one channel) or
// PPM (three); Raw is frames without headers.
enum class FileFormat { Unknown, Png, Pnm, Y4m, Raw };

// "png", "pnm", "y4m", "raw" (also "ppm", "pgm"); throws std::runtime_error.
FileFormat parseFileFormat(const std::string& name);
// By extension: png; ppm, pgm, pnm; y4m; Unknown otherwise.
FileFormat formatOfExtension(const std::string& path);
// By signature: PNG, YUV4MPEG2, or P2/P3/P5/P6 followed by white space.
FileFormat sniffFormat(const std::string& head);

// Lower-case extension of a path without the dot ("" if none).
std::string extensionOf(const std::string& path);

// An input: a file, or standard input for "-". Bytes may be looked at
// before they are read (peek), so that a pipe's format can be recognised.
class InputFile {
public:
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    // The path, or "standard input".
    const std::string& name() const { return name_; }
    // Up to n first bytes, left in place to be read.
    std::string peek(std::size_t n);
    // Reads n bytes; fewer only at the end of the input. Throws on a read error.
    std::size_t read(void* dst, std::size_t n);
    int get();  // the next byte, or EOF
    // Bytes left unread in a regular file; -1 for a pipe or a device.
    long long remaining() const { return size_ < 0 ? -1 : size_ - pos_; }

private:
    std::string name_;
    FILE* file_ = nullptr;
    bool own_ = false;
    std::string pending_;  // peeked bytes not yet read
    std::size_t pendingAt_ = 0;
    long long size_ = -1, pos_ = 0;
};

// An output. "-" is standard output; FIFOs, devices and a symbolic link
// whose target does not exist are written through, as they are. A regular
// file (new, existing, or the target of a symbolic link) is written under a
// temporary name beside it and renamed into place by commit(), keeping the
// mode of the file it replaces; without commit(), on an error or on SIGINT,
// SIGTERM, SIGHUP or SIGPIPE, the temporary is removed. So a failed run never
// leaves a partial file, and a link stays a link. An existing read-only file
// is an error, not replaced.
class OutputFile {
public:
    explicit OutputFile(std::string path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    void write(const void* data, std::size_t len);
    void commit();
    const std::string& path() const { return path_; }

private:
    std::string path_, target_, tmp_;
    FILE* file_ = nullptr;
    int slot_ = -1;  // in the table of temporaries removed on a signal
};

// PNG: writes 8- or 16-bit images of 1 to 4 channels; reads every PNG
// (palette and low-depth gray expanded to 8 bits, transparency to an alpha
// channel). Throws std::runtime_error with a message that names the file.
void writePng(const std::string& path, const Picture& pic);
inline void writePng(const std::string& path, const Image8& img) { writePng(path, Picture(img)); }
inline void writePng(const std::string& path, const Image16& img) { writePng(path, Picture(img)); }
Picture readPng(InputFile& in);
Picture readPng(const std::string& path);

// Binary (P5/P6) and plain (P2/P3) PGM/PPM; maxval 255 gives 8-bit samples,
// 65535 16-bit ones, other values are rescaled to the nearer of the two.
Picture readPnm(InputFile& in);
Picture readPnm(const std::string& path);
// Writes P5 (one channel) or P6 (three channels), maxval 255 or 65535.
void writePnm(const std::string& path, const Picture& pic);

void writeImage(const std::string& path, const Picture& pic, FileFormat format);

// The image as three channels (gray replicated, alpha dropped) of type D;
// 8-bit samples are widened by 257, 16-bit ones narrowed to
// (v * 255 + 32767) / 65535.
template <typename D, typename S>
void rgbInto(const Raster<S>& in, Raster<D>& out) {
    out.reshape(in.width, in.height, 3);
    const std::size_t n = static_cast<std::size_t>(in.width) * in.height;
    for (std::size_t i = 0; i < n; ++i) {
        const S* p = in.pixels.data() + i * in.channels;
        for (int c = 0; c < 3; ++c) {
            const unsigned v = p[in.channels <= 2 ? 0 : c];
            out.pixels[3 * i + c] = static_cast<D>(sizeof(D) == sizeof(S) ? v
                                                   : sizeof(D) > sizeof(S) ? v * 257u
                                                                           : (v * 255u + 32767u) / 65535u);
        }
    }
}

}  // namespace zorcc_tool
