#include "image_io.h"

#include <png.h>

#include <cstdio>
#include <stdexcept>

namespace zorcc_tool {

namespace {

struct PngWriter {
    png_structp png = nullptr;
    png_infop info = nullptr;
    ~PngWriter() { png_destroy_write_struct(&png, &info); }
};

[[noreturn]] void pngError(png_structp, png_const_charp msg) { throw std::runtime_error(msg); }
void pngWarning(png_structp, png_const_charp) {}

}  // namespace

void writePng(const std::string& path, const Image8& img) {
    int colorType = PNG_COLOR_TYPE_RGB;
    if (img.channels == 1) colorType = PNG_COLOR_TYPE_GRAY;
    else if (img.channels == 4) colorType = PNG_COLOR_TYPE_RGB_ALPHA;
    else if (img.channels != 3) throw std::runtime_error("cannot write a PNG of " + std::to_string(img.channels) + " channels");

    const std::string tmp = path + ".part";
    FILE* f = std::fopen(tmp.c_str(), "wb");
    if (f == nullptr) throw std::runtime_error("cannot create " + tmp);
    try {
        PngWriter w;
        w.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, pngError, pngWarning);
        if (w.png == nullptr) throw std::runtime_error("libpng: out of memory");
        w.info = png_create_info_struct(w.png);
        if (w.info == nullptr) throw std::runtime_error("libpng: out of memory");
        png_init_io(w.png, f);
        png_set_IHDR(w.png, w.info, static_cast<png_uint_32>(img.width), static_cast<png_uint_32>(img.height), 8,
                     colorType, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        png_set_compression_level(w.png, 3);
        png_write_info(w.png, w.info);
        for (int y = 0; y < img.height; ++y) png_write_row(w.png, const_cast<png_bytep>(img.row(y)));
        png_write_end(w.png, w.info);
    } catch (...) {
        std::fclose(f);
        std::remove(tmp.c_str());
        throw;
    }
    if (std::fclose(f) != 0 || std::rename(tmp.c_str(), path.c_str()) != 0) {
        std::remove(tmp.c_str());
        throw std::runtime_error("cannot write " + path);
    }
}

}  // namespace zorcc_tool
