#include "image_io.h"

#include <png.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zorcc_tool {

// ---------------------------------------------------------------------------
// Formats

FileFormat parseFileFormat(const std::string& name) {
    if (name == "png") return FileFormat::Png;
    if (name == "pnm" || name == "ppm" || name == "pgm") return FileFormat::Pnm;
    if (name == "y4m") return FileFormat::Y4m;
    if (name == "raw") return FileFormat::Raw;
    throw std::runtime_error("unknown file format '" + name + "' (use png, pnm, y4m or raw)");
}

FileFormat formatOfExtension(const std::string& path) {
    const std::string ext = extensionOf(path);
    if (ext == "png") return FileFormat::Png;
    if (ext == "ppm" || ext == "pgm" || ext == "pnm") return FileFormat::Pnm;
    if (ext == "y4m") return FileFormat::Y4m;
    return FileFormat::Unknown;
}

FileFormat sniffFormat(const std::string& head) {
    if (head.compare(0, 8, "\x89PNG\r\n\x1a\n") == 0) return FileFormat::Png;
    if (head.compare(0, 9, "YUV4MPEG2") == 0) return FileFormat::Y4m;
    if (head.size() >= 3 && head[0] == 'P' && std::strchr("2356", head[1]) != nullptr &&
        std::isspace(static_cast<unsigned char>(head[2])))
        return FileFormat::Pnm;
    return FileFormat::Unknown;
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
// Inputs

InputFile::InputFile(const std::string& path) : name_(path == "-" ? "standard input" : path) {
    if (path == "-") {
        if (::isatty(STDIN_FILENO)) throw std::runtime_error("standard input is a terminal: pipe a file into it");
        file_ = stdin;
    } else {
        file_ = std::fopen(path.c_str(), "rb");
        if (file_ == nullptr) throw std::runtime_error("cannot open " + path + ": " + std::strerror(errno));
        own_ = true;
    }
    struct stat st;
    if (::fstat(fileno(file_), &st) == 0) {
        if (S_ISDIR(st.st_mode)) {
            if (own_) std::fclose(file_);
            throw std::runtime_error("cannot read " + path + ": it is a folder");
        }
        const long at = std::ftell(file_);
        if (S_ISREG(st.st_mode)) size_ = static_cast<long long>(st.st_size) - (at > 0 ? at : 0);
    }
}

InputFile::~InputFile() {
    if (own_) std::fclose(file_);
}

std::string InputFile::peek(std::size_t n) {
    while (pending_.size() - pendingAt_ < n) {
        const int c = std::fgetc(file_);
        if (c == EOF) break;
        pending_.push_back(static_cast<char>(c));
    }
    return pending_.substr(pendingAt_, n);
}

std::size_t InputFile::read(void* dst, std::size_t n) {
    auto* out = static_cast<std::uint8_t*>(dst);
    std::size_t got = std::min(n, pending_.size() - pendingAt_);
    std::memcpy(out, pending_.data() + pendingAt_, got);
    pendingAt_ += got;
    if (got < n) got += std::fread(out + got, 1, n - got, file_);
    if (got < n && std::ferror(file_)) throw std::runtime_error("cannot read " + name_ + ": " + std::strerror(errno));
    pos_ += static_cast<long long>(got);
    return got;
}

int InputFile::get() {
    std::uint8_t c;
    return read(&c, 1) == 1 ? c : EOF;
}

// ---------------------------------------------------------------------------
// Outputs

namespace {

// Temporaries that a signal must not leave behind: fixed storage, so that
// the handler only reads memory and calls unlink.
constexpr int kTempSlots = 8;
char gTemps[kTempSlots][4096];

extern "C" void removeTempsAndDie(int sig) {
    for (auto& t : gTemps)
        if (t[0] != '\0') ::unlink(t);
    std::signal(sig, SIG_DFL);
    std::raise(sig);
}

int registerTemp(const std::string& path) {
    static const bool installed = [] {
        for (int sig : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) std::signal(sig, removeTempsAndDie);
        return true;
    }();
    (void)installed;
    if (path.size() >= sizeof gTemps[0]) return -1;
    for (int i = 0; i < kTempSlots; ++i)
        if (gTemps[i][0] == '\0') {
            std::memcpy(gTemps[i], path.c_str(), path.size() + 1);
            return i;
        }
    return -1;
}

void releaseTemp(int slot) {
    if (slot >= 0) gTemps[slot][0] = '\0';
}

}  // namespace

OutputFile::OutputFile(std::string path) : path_(std::move(path)) {
    if (path_ == "-") {
        if (::isatty(STDOUT_FILENO)) throw std::runtime_error("standard output is a terminal: redirect it, or name an output file");
        file_ = stdout;
        return;
    }
    namespace fs = std::filesystem;
    std::string target = path_;
    struct stat st;
    const bool link = ::lstat(path_.c_str(), &st) == 0 && S_ISLNK(st.st_mode);
    if (link) {
        std::error_code ec;
        const fs::path resolved = fs::canonical(path_, ec);
        if (!ec) target = resolved.string();
    }
    const bool exists = ::stat(target.c_str(), &st) == 0;
    if (exists && S_ISDIR(st.st_mode)) throw std::runtime_error("cannot write " + path_ + ": it is a folder");
    if ((exists && !S_ISREG(st.st_mode)) || (link && !exists)) {
        // A FIFO, a device, or a link to a file yet to be made: written as it is.
        file_ = std::fopen(path_.c_str(), "wb");
        if (file_ == nullptr) throw std::runtime_error("cannot write " + path_ + ": " + std::strerror(errno));
        return;
    }
    mode_t mode;
    if (exists) {
        // access() grants root everything: a file without any write bit is read-only too.
        if (::access(target.c_str(), W_OK) != 0 || (st.st_mode & 0222) == 0)
            throw std::runtime_error(path_ + " exists and is read-only (remove it or make it writable first)");
        mode = st.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    target_ = target;
    std::string tmpl = target + ".part-XXXXXX";
    const int fd = ::mkstemp(tmpl.data());
    if (fd < 0) throw std::runtime_error("cannot create " + path_ + ": " + std::strerror(errno));
    tmp_ = tmpl;
    slot_ = registerTemp(tmp_);
    ::fchmod(fd, mode);
    file_ = ::fdopen(fd, "wb");
    if (file_ == nullptr) {
        ::close(fd);
        ::unlink(tmp_.c_str());
        releaseTemp(slot_);
        throw std::runtime_error("cannot create " + path_ + ": " + std::strerror(errno));
    }
}

OutputFile::~OutputFile() {
    if (file_ == nullptr) return;
    if (file_ == stdout) {
        std::fflush(stdout);
        return;
    }
    std::fclose(file_);
    if (!tmp_.empty()) {
        ::unlink(tmp_.c_str());
        releaseTemp(slot_);
    }
}

void OutputFile::write(const void* data, std::size_t len) {
    if (len != 0 && std::fwrite(data, 1, len, file_) != len)
        throw std::runtime_error("cannot write " + path_ + ": " + std::strerror(errno));
}

void OutputFile::commit() {
    FILE* f = file_;
    file_ = nullptr;
    bool ok = std::fflush(f) == 0 && !std::ferror(f);
    if (f != stdout) ok = std::fclose(f) == 0 && ok;
    if (!tmp_.empty()) {
        ok = ok && std::rename(tmp_.c_str(), target_.c_str()) == 0;
        if (!ok) ::unlink(tmp_.c_str());
        releaseTemp(slot_);
    }
    if (!ok) throw std::runtime_error("cannot write " + path_ + ": " + std::strerror(errno));
}

// ---------------------------------------------------------------------------
// PNG

namespace {

[[noreturn]] void pngError(png_structp png, png_const_charp msg) {
    const char* name = static_cast<const char*>(png_get_error_ptr(png));
    throw std::runtime_error(std::string(name ? name : "PNG") + ": " + msg);
}
void pngWarning(png_structp, png_const_charp) {}

void pngWrite(png_structp png, png_bytep data, png_size_t len) {
    static_cast<OutputFile*>(png_get_io_ptr(png))->write(data, len);
}
void pngFlush(png_structp) {}

void pngRead(png_structp png, png_bytep data, png_size_t len) {
    if (static_cast<InputFile*>(png_get_io_ptr(png))->read(data, len) != len) png_error(png, "truncated PNG");
}

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
    OutputFile out(path);
    {
        PngWriter w;
        w.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, const_cast<char*>(path.c_str()), pngError, pngWarning);
        if (w.png == nullptr) throw std::runtime_error("libpng: out of memory");
        w.info = png_create_info_struct(w.png);
        if (w.info == nullptr) throw std::runtime_error("libpng: out of memory");
        png_set_write_fn(w.png, &out, pngWrite, pngFlush);
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

}  // namespace

void writePng(const std::string& path, const Picture& pic) {
    if (pic.depth == 8) writePngT(path, pic.i8);
    else writePngT(path, pic.i16);
}

Picture readPng(InputFile& in) {
    const std::string& path = in.name();
    unsigned char sig[8];
    if (in.read(sig, 8) != 8 || png_sig_cmp(sig, 0, 8) != 0) throw std::runtime_error(path + ": not a PNG file");

    PngReader r;
    r.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, const_cast<char*>(path.c_str()), pngError, pngWarning);
    if (r.png == nullptr) throw std::runtime_error("libpng: out of memory");
    r.info = png_create_info_struct(r.png);
    if (r.info == nullptr) throw std::runtime_error("libpng: out of memory");
    png_set_read_fn(r.png, &in, pngRead);
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

Picture readPng(const std::string& path) {
    InputFile in(path);
    return readPng(in);
}

// ---------------------------------------------------------------------------
// PGM / PPM

namespace {

// Reads the next header token of a PNM file, skipping white space and
// comments; the one white-space byte after the token is consumed.
bool pnmToken(InputFile& f, std::string& tok) {
    tok.clear();
    int c = f.get();
    for (;;) {
        while (c != EOF && std::isspace(c)) c = f.get();
        if (c != '#') break;
        while (c != EOF && c != '\n') c = f.get();
    }
    while (c != EOF && !std::isspace(c) && tok.size() < 16) {
        tok.push_back(static_cast<char>(c));
        c = f.get();
    }
    return !tok.empty();
}

long pnmNumber(InputFile& f, const char* what) {
    std::string tok;
    if (!pnmToken(f, tok)) throw std::runtime_error(f.name() + ": truncated header (" + what + ")");
    char* end = nullptr;
    const long v = std::strtol(tok.c_str(), &end, 10);
    if (*end != '\0' || v < 0) throw std::runtime_error(f.name() + ": bad " + what + " '" + tok + "'");
    return v;
}

}  // namespace

Picture readPnm(InputFile& f) {
    const std::string& path = f.name();
    std::string magic;
    if (!pnmToken(f, magic) || magic.size() != 2 || magic[0] != 'P' ||
        (magic[1] != '2' && magic[1] != '3' && magic[1] != '5' && magic[1] != '6'))
        throw std::runtime_error(path + ": not a PGM/PPM file (P2, P3, P5 or P6)");
    const bool plain = magic[1] == '2' || magic[1] == '3';
    const int channels = (magic[1] == '3' || magic[1] == '6') ? 3 : 1;
    const long w = pnmNumber(f, "width"), h = pnmNumber(f, "height");
    const long maxval = pnmNumber(f, "maxval");
    if (w < 1 || h < 1 || w > 65536 || h > 65536 || w * h > (1l << 28))
        throw std::runtime_error(path + ": bad size " + std::to_string(w) + "x" + std::to_string(h));
    if (maxval < 1 || maxval > 65535) throw std::runtime_error(path + ": bad maxval " + std::to_string(maxval));

    const std::size_t n = static_cast<std::size_t>(w) * h * channels;
    const std::size_t bps = maxval > 255 ? 2 : 1;
    if (!plain && f.remaining() >= 0 && static_cast<unsigned long long>(f.remaining()) < n * bps)
        throw std::runtime_error(path + ": truncated pixel data");
    std::vector<std::uint32_t> v(n);
    if (plain) {
        for (std::size_t i = 0; i < n; ++i) {
            const long s = pnmNumber(f, "sample");
            if (s > maxval) throw std::runtime_error(path + ": sample above maxval");
            v[i] = static_cast<std::uint32_t>(s);
        }
    } else {
        std::vector<std::uint8_t> raw(n * bps);
        if (f.read(raw.data(), raw.size()) != raw.size()) throw std::runtime_error(path + ": truncated pixel data");
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

Picture readPnm(const std::string& path) {
    InputFile in(path);
    return readPnm(in);
}

void writePnm(const std::string& path, const Picture& pic) {
    const int c = pic.channels();
    if (c != 1 && c != 3)
        throw std::runtime_error("cannot write " + std::to_string(c) + " channels to " + path +
                                 " (PGM holds 1, PPM 3; write a PNG instead)");
    const std::string header = std::string(c == 1 ? "P5" : "P6") + "\n" + std::to_string(pic.width()) + " " +
                               std::to_string(pic.height()) + "\n" + (pic.depth == 8 ? "255" : "65535") + "\n";
    OutputFile out(path);
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

void writeImage(const std::string& path, const Picture& pic, FileFormat format) {
    if (format == FileFormat::Png) writePng(path, pic);
    else writePnm(path, pic);
}

}  // namespace zorcc_tool
