#include "image_io.h"

#include <png.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace zorcc_tool {

// ---------------------------------------------------------------------------
// Atomic files

AtomicFile::AtomicFile(std::string path) : path_(std::move(path)), tmp_(path_ + ".part") {
    file_ = std::fopen(tmp_.c_str(), "wb");
    if (file_ == nullptr) throw std::runtime_error("cannot create " + path_ + ": " + std::strerror(errno));
}

AtomicFile::~AtomicFile() {
    if (file_ != nullptr) {
        std::fclose(file_);
        std::remove(tmp_.c_str());
    }
}

void AtomicFile::write(const void* data, std::size_t len) {
    if (len != 0 && std::fwrite(data, 1, len, file_) != len)
        throw std::runtime_error("cannot write " + path_ + ": " + std::strerror(errno));
}

void AtomicFile::commit() {
    FILE* f = file_;
    file_ = nullptr;
    const bool ok = std::fflush(f) == 0 && !std::ferror(f);
    if (std::fclose(f) != 0 || !ok || std::rename(tmp_.c_str(), path_.c_str()) != 0) {
        std::remove(tmp_.c_str());
        throw std::runtime_error("cannot write " + path_);
    }
}

std::string extensionOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    const auto dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return "";
    std::string ext = path.substr(dot + 1);
    for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return ext;
}

// ---------------------------------------------------------------------------
// PNG

namespace {

[[noreturn]] void pngError(png_structp png, png_const_charp msg) {
    const char* name = static_cast<const char*>(png_get_error_ptr(png));
    throw std::runtime_error(std::string(name ? name : "PNG") + ": " + msg);
}
void pngWarning(png_structp, png_const_charp) {}

struct PngWriter {
    png_structp png = nullptr;
    png_infop info = nullptr;
    ~PngWriter() { png_destroy_write_struct(&png, &info); }
};

struct PngReader {
    png_structp png = nullptr;
    png_infop info = nullptr;
    ~PngReader() { png_destroy_read_struct(&png, &info, nullptr); }
};

int pngColorType(int channels) {
    switch (channels) {
        case 1: return PNG_COLOR_TYPE_GRAY;
        case 2: return PNG_COLOR_TYPE_GRAY_ALPHA;
        case 3: return PNG_COLOR_TYPE_RGB;
        case 4: return PNG_COLOR_TYPE_RGB_ALPHA;
        default: throw std::runtime_error("cannot write a PNG of " + std::to_string(channels) + " channels");
    }
}

template <typename T>
void writePngT(const std::string& path, const Raster<T>& img) {
    const int colorType = pngColorType(img.channels);
    AtomicFile out(path);
    {
        PngWriter w;
        w.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, const_cast<char*>(path.c_str()), pngError, pngWarning);
        if (w.png == nullptr) throw std::runtime_error("libpng: out of memory");
        w.info = png_create_info_struct(w.png);
        if (w.info == nullptr) throw std::runtime_error("libpng: out of memory");
        png_init_io(w.png, out.get());
        png_set_IHDR(w.png, w.info, static_cast<png_uint_32>(img.width), static_cast<png_uint_32>(img.height),
                     8 * static_cast<int>(sizeof(T)), colorType, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        png_set_compression_level(w.png, 3);
        png_write_info(w.png, w.info);
        if (sizeof(T) == 2) png_set_swap(w.png);  // host order -> big-endian
        for (int y = 0; y < img.height; ++y)
            png_write_row(w.png, reinterpret_cast<png_const_bytep>(img.row(y)));
        png_write_end(w.png, w.info);
    }
    out.commit();
}

struct FileCloser {
    FILE* f;
    ~FileCloser() {
        if (f) std::fclose(f);
    }
};

}  // namespace

void writePng(const std::string& path, const Image8& img) { writePngT(path, img); }
void writePng(const std::string& path, const Image16& img) { writePngT(path, img); }
void writePng(const std::string& path, const Picture& pic) {
    if (pic.depth == 8) writePngT(path, pic.i8);
    else writePngT(path, pic.i16);
}

Picture readPng(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "rb");
    if (f == nullptr) throw std::runtime_error("cannot open " + path + ": " + std::strerror(errno));
    FileCloser closer{f};
    unsigned char sig[8];
    if (std::fread(sig, 1, 8, f) != 8 || png_sig_cmp(sig, 0, 8) != 0)
        throw std::runtime_error(path + ": not a PNG file");

    PngReader r;
    r.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, const_cast<char*>(path.c_str()), pngError, pngWarning);
    if (r.png == nullptr) throw std::runtime_error("libpng: out of memory");
    r.info = png_create_info_struct(r.png);
    if (r.info == nullptr) throw std::runtime_error("libpng: out of memory");
    png_init_io(r.png, f);
    png_set_sig_bytes(r.png, 8);
    png_read_info(r.png, r.info);

    const png_uint_32 w = png_get_image_width(r.png, r.info), h = png_get_image_height(r.png, r.info);
    if (w > 65536 || h > 65536 || static_cast<unsigned long long>(w) * h > (1ull << 28))
        throw std::runtime_error(path + ": image of " + std::to_string(w) + "x" + std::to_string(h) + " is too large");
    const int colorType = png_get_color_type(r.png, r.info);
    const int bitDepth = png_get_bit_depth(r.png, r.info);
    if (colorType == PNG_COLOR_TYPE_PALETTE) png_set_palette_to_rgb(r.png);
    if (colorType == PNG_COLOR_TYPE_GRAY && bitDepth < 8) png_set_expand_gray_1_2_4_to_8(r.png);
    if (png_get_valid(r.png, r.info, PNG_INFO_tRNS)) png_set_tRNS_to_alpha(r.png);
    if (bitDepth == 16) png_set_swap(r.png);  // big-endian -> host order
    png_set_interlace_handling(r.png);
    png_read_update_info(r.png, r.info);
    const int channels = png_get_channels(r.png, r.info);
    const int depth = png_get_bit_depth(r.png, r.info);

    Picture pic;
    pic.depth = depth == 16 ? 16 : 8;
    std::vector<png_bytep> rows(h);
    if (pic.depth == 8) {
        pic.i8 = Image8(static_cast<int>(w), static_cast<int>(h), channels);
        for (png_uint_32 y = 0; y < h; ++y) rows[y] = pic.i8.row(static_cast<int>(y));
    } else {
        pic.i16 = Image16(static_cast<int>(w), static_cast<int>(h), channels);
        for (png_uint_32 y = 0; y < h; ++y) rows[y] = reinterpret_cast<png_bytep>(pic.i16.row(static_cast<int>(y)));
    }
    png_read_image(r.png, rows.data());
    png_read_end(r.png, nullptr);
    return pic;
}

// ---------------------------------------------------------------------------
// PGM / PPM

namespace {

// Reads the next header token of a PNM file, skipping white space and
// comments.
bool pnmToken(FILE* f, std::string& tok) {
    tok.clear();
    int c = std::fgetc(f);
    for (;;) {
        while (c != EOF && std::isspace(c)) c = std::fgetc(f);
        if (c == '#') {
            while (c != EOF && c != '\n') c = std::fgetc(f);
            continue;
        }
        break;
    }
    while (c != EOF && !std::isspace(c) && tok.size() < 16) {
        tok.push_back(static_cast<char>(c));
        c = std::fgetc(f);
    }
    return !tok.empty();  // the one white-space byte after the token is consumed
}

long pnmNumber(FILE* f, const std::string& path, const char* what) {
    std::string tok;
    if (!pnmToken(f, tok)) throw std::runtime_error(path + ": truncated header (" + what + ")");
    char* end = nullptr;
    const long v = std::strtol(tok.c_str(), &end, 10);
    if (*end != '\0' || v < 0) throw std::runtime_error(path + ": bad " + what + " '" + tok + "'");
    return v;
}

}  // namespace

Picture readPnm(const std::string& path) {
    FILE* f = std::fopen(path.c_str(), "rb");
    if (f == nullptr) throw std::runtime_error("cannot open " + path + ": " + std::strerror(errno));
    FileCloser closer{f};
    std::string magic;
    if (!pnmToken(f, magic) || magic.size() != 2 || magic[0] != 'P' ||
        (magic[1] != '2' && magic[1] != '3' && magic[1] != '5' && magic[1] != '6'))
        throw std::runtime_error(path + ": not a PGM/PPM file (P2, P3, P5 or P6)");
    const bool plain = magic[1] == '2' || magic[1] == '3';
    const int channels = (magic[1] == '3' || magic[1] == '6') ? 3 : 1;
    const long w = pnmNumber(f, path, "width"), h = pnmNumber(f, path, "height");
    const long maxval = pnmNumber(f, path, "maxval");
    if (w < 1 || h < 1 || w > 65536 || h > 65536 || w * h > (1l << 28))
        throw std::runtime_error(path + ": bad size " + std::to_string(w) + "x" + std::to_string(h));
    if (maxval < 1 || maxval > 65535) throw std::runtime_error(path + ": bad maxval " + std::to_string(maxval));

    const std::size_t n = static_cast<std::size_t>(w) * h * channels;
    std::vector<std::uint32_t> v(n);
    if (plain) {
        for (std::size_t i = 0; i < n; ++i) {
            const long s = pnmNumber(f, path, "sample");
            if (s > maxval) throw std::runtime_error(path + ": sample above maxval");
            v[i] = static_cast<std::uint32_t>(s);
        }
    } else {
        const std::size_t bps = maxval > 255 ? 2 : 1;
        std::vector<std::uint8_t> raw(n * bps);
        if (std::fread(raw.data(), 1, raw.size(), f) != raw.size())
            throw std::runtime_error(path + ": truncated pixel data");
        for (std::size_t i = 0; i < n; ++i)
            v[i] = bps == 1 ? raw[i] : (std::uint32_t(raw[2 * i]) << 8 | raw[2 * i + 1]);
    }
    Picture pic;
    pic.depth = maxval > 255 ? 16 : 8;
    const std::uint32_t top = pic.depth == 8 ? 255 : 65535;
    auto scale = [&](std::uint32_t s) {
        return maxval == static_cast<long>(top) ? s : static_cast<std::uint32_t>((s * 2ull * top + maxval) / (2ull * maxval));
    };
    if (pic.depth == 8) {
        pic.i8 = Image8(static_cast<int>(w), static_cast<int>(h), channels);
        for (std::size_t i = 0; i < n; ++i) pic.i8.pixels[i] = static_cast<std::uint8_t>(std::min(scale(v[i]), top));
    } else {
        pic.i16 = Image16(static_cast<int>(w), static_cast<int>(h), channels);
        for (std::size_t i = 0; i < n; ++i) pic.i16.pixels[i] = static_cast<std::uint16_t>(std::min(scale(v[i]), top));
    }
    return pic;
}

void writePnm(const std::string& path, const Picture& pic) {
    const int c = pic.channels();
    if (c != 1 && c != 3)
        throw std::runtime_error("cannot write " + std::to_string(c) + " channels to " + path +
                                 " (PGM holds 1, PPM 3; write a PNG instead)");
    const std::string header = std::string(c == 1 ? "P5" : "P6") + "\n" + std::to_string(pic.width()) + " " +
                               std::to_string(pic.height()) + "\n" + (pic.depth == 8 ? "255" : "65535") + "\n";
    AtomicFile out(path);
    out.write(header.data(), header.size());
    if (pic.depth == 8) {
        out.write(pic.i8.pixels.data(), pic.i8.pixels.size());
    } else {
        std::vector<std::uint8_t> be(pic.i16.pixels.size() * 2);
        for (std::size_t i = 0; i < pic.i16.pixels.size(); ++i) {
            be[2 * i] = static_cast<std::uint8_t>(pic.i16.pixels[i] >> 8);
            be[2 * i + 1] = static_cast<std::uint8_t>(pic.i16.pixels[i]);
        }
        out.write(be.data(), be.size());
    }
    out.commit();
}

bool isImagePath(const std::string& path) {
    const std::string ext = extensionOf(path);
    return ext == "png" || ext == "ppm" || ext == "pgm" || ext == "pnm";
}

Picture readImage(const std::string& path) {
    return extensionOf(path) == "png" ? readPng(path) : readPnm(path);
}

void writeImage(const std::string& path, const Picture& pic) {
    if (extensionOf(path) == "png") writePng(path, pic);
    else writePnm(path, pic);
}

// ---------------------------------------------------------------------------
// Channel and depth helpers

namespace {
template <typename T>
Raster<T> rgbOf(const Raster<T>& in) {
    if (in.channels == 3) return in;
    Raster<T> out(in.width, in.height, 3);
    const std::size_t n = static_cast<std::size_t>(in.width) * in.height;
    for (std::size_t i = 0; i < n; ++i) {
        const T* p = in.pixels.data() + i * in.channels;
        T* q = out.pixels.data() + i * 3;
        if (in.channels <= 2) q[0] = q[1] = q[2] = p[0];
        else q[0] = p[0], q[1] = p[1], q[2] = p[2];
    }
    return out;
}
}  // namespace

Picture toRgb(const Picture& pic) {
    return pic.depth == 8 ? Picture(rgbOf(pic.i8)) : Picture(rgbOf(pic.i16));
}

Image16 widen(const Image8& img) {
    Image16 out(img.width, img.height, img.channels);
    for (std::size_t i = 0; i < img.pixels.size(); ++i) out.pixels[i] = static_cast<std::uint16_t>(img.pixels[i] * 257);
    return out;
}

Image8 narrow(const Image16& img) {
    Image8 out(img.width, img.height, img.channels);
    for (std::size_t i = 0; i < img.pixels.size(); ++i)
        out.pixels[i] = static_cast<std::uint8_t>((img.pixels[i] * 255u + 32767u) / 65535u);
    return out;
}

}  // namespace zorcc_tool
