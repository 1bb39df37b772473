#include "yuv_io.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <sys/stat.h>

namespace zorcc_tool {

// ---------------------------------------------------------------------------
// Formats and frames

namespace {
struct FormatInfo {
    YuvFormat format;
    const char* name;
};
const FormatInfo kFormats[] = {{YuvFormat::I420, "i420"}, {YuvFormat::NV12, "nv12"}, {YuvFormat::YUY2, "yuy2"},
                               {YuvFormat::UYVY, "uyvy"}, {YuvFormat::I422, "i422"}, {YuvFormat::I444, "i444"},
                               {YuvFormat::I411, "i411"}};
const char* const kPackedFormats[] = {"rgb565", "bgr565", "rgb555", "bgr555", "rgb444", "bgr444"};
}  // namespace

const char* formatName(YuvFormat f) {
    for (const auto& i : kFormats)
        if (i.format == f) return i.name;
    return "?";
}

bool parseYuvFormat(const std::string& name, YuvFormat& out) {
    for (const auto& i : kFormats)
        if (name == i.name) {
            out = i.format;
            return true;
        }
    return false;
}

std::string yuvFormatList() {
    std::string s;
    for (const auto& i : kFormats) s += (s.empty() ? "" : "|") + std::string(i.name);
    return s;
}

std::string sizeProblem(YuvFormat f, int w, int h) {
    const std::string fmt = formatName(f);
    if (w < 1 || h < 1) return "a " + fmt + " frame needs a size of at least 1x1";
    if (static_cast<long long>(w) * h > (1ll << 28))
        return "a frame of " + std::to_string(w) + "x" + std::to_string(h) + " is too large";
    switch (f) {
        case YuvFormat::I420:
        case YuvFormat::NV12:
            if (w % 2 || h % 2) return fmt + " needs an even width and height, not " + std::to_string(w) + "x" + std::to_string(h);
            break;
        case YuvFormat::I422:
        case YuvFormat::YUY2:
        case YuvFormat::UYVY:
            if (w % 2) return fmt + " needs an even width, not " + std::to_string(w);
            break;
        case YuvFormat::I411:
            if (w % 4) return fmt + " needs a width that is a multiple of 4, not " + std::to_string(w);
            break;
        case YuvFormat::I444: break;
    }
    return "";
}

YuvFrame::YuvFrame(YuvFormat f, int w, int h) : format(f), width(w), height(h) {
    const std::string why = sizeProblem(f, w, h);
    if (!why.empty()) throw std::runtime_error(why);
    int n = 3;
    if (f == YuvFormat::NV12) n = 2;
    if (f == YuvFormat::YUY2 || f == YuvFormat::UYVY) n = 1;
    planes.resize(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) planes[i].assign(static_cast<std::size_t>(planeWidth(i)) * planeHeight(i), 0);
}

int YuvFrame::planeWidth(int i) const {
    switch (format) {
        case YuvFormat::I444: return width;
        case YuvFormat::I422:
        case YuvFormat::I420: return i == 0 ? width : width / 2;
        case YuvFormat::I411: return i == 0 ? width : width / 4;
        case YuvFormat::NV12: return width;
        case YuvFormat::YUY2:
        case YuvFormat::UYVY: return 2 * width;
    }
    return 0;
}

int YuvFrame::planeHeight(int i) const {
    if ((format == YuvFormat::I420 || format == YuvFormat::NV12) && i > 0) return height / 2;
    return height;
}

std::size_t YuvFrame::byteSize() const {
    std::size_t n = 0;
    for (const auto& p : planes) n += p.size();
    return n;
}

std::size_t frameBytes(YuvFormat f, int w, int h) {
    const std::size_t luma = static_cast<std::size_t>(w) * h;
    switch (f) {
        case YuvFormat::I444: return 3 * luma;
        case YuvFormat::I422:
        case YuvFormat::YUY2:
        case YuvFormat::UYVY: return 2 * luma;
        case YuvFormat::I420:
        case YuvFormat::NV12: return luma + 2 * (static_cast<std::size_t>(w / 2) * (h / 2));
        case YuvFormat::I411: return luma + 2 * (static_cast<std::size_t>(w / 4) * h);
    }
    return 0;
}

bool isPacked16Format(const std::string& name) {
    for (const char* p : kPackedFormats)
        if (name == p) return true;
    return false;
}

Image8 unpackToRgb(const Packed16& p) {
    // Field positions from the low end: first, middle, high channel.
    const bool bgr = p.format[0] == 'b';
    int bits[3];
    if (p.format.compare(3, 3, "565") == 0) bits[0] = 5, bits[1] = 6, bits[2] = 5;
    else if (p.format.compare(3, 3, "555") == 0) bits[0] = bits[1] = bits[2] = 5;
    else bits[0] = bits[1] = bits[2] = 4;
    Image8 out(p.width, p.height, 3);
    for (std::size_t i = 0; i < p.words.size(); ++i) {
        unsigned w = p.words[i];
        int v[3];
        for (int c = 0; c < 3; ++c) {
            const unsigned f = w & ((1u << bits[c]) - 1);
            w >>= bits[c];
            unsigned x = f << (8 - bits[c]);  // replicate the top bits into the low ones
            for (int s = bits[c]; s < 8; s += bits[c]) x |= x >> bits[c];
            v[c] = static_cast<int>(x & 255);
        }
        std::uint8_t* q = out.pixels.data() + 3 * i;
        q[0] = static_cast<std::uint8_t>(bgr ? v[2] : v[0]);
        q[1] = static_cast<std::uint8_t>(v[1]);
        q[2] = static_cast<std::uint8_t>(bgr ? v[0] : v[2]);
    }
    return out;
}

const char* kindName(Kind k) {
    switch (k) {
        case Kind::Image: return "image";
        case Kind::Yuv: return "YUV frame";
        case Kind::Packed: return "packed 16-bit RGB";
    }
    return "?";
}

const char* y4mTag(YuvFormat f) {
    switch (f) {
        case YuvFormat::I420: return "420jpeg";
        case YuvFormat::I422: return "422";
        case YuvFormat::I444: return "444";
        case YuvFormat::I411: return "411";
        default: return nullptr;
    }
}

// ---------------------------------------------------------------------------
// Readers

namespace {

class File {
public:
    File(const std::string& path, const char* mode) : f_(std::fopen(path.c_str(), mode)) {
        if (f_ == nullptr) throw std::runtime_error("cannot open " + path + ": " + std::strerror(errno));
    }
    ~File() { std::fclose(f_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    FILE* get() const { return f_; }

private:
    FILE* f_;
};

long long fileSize(const std::string& path) {
    struct stat st;
    if (::stat(path.c_str(), &st) != 0) throw std::runtime_error("cannot open " + path + ": " + std::strerror(errno));
    return static_cast<long long>(st.st_size);
}

// Reads exactly len bytes; returns the count actually read.
std::size_t readFully(FILE* f, void* dst, std::size_t len) { return std::fread(dst, 1, len, f); }

class ImageReader : public FrameReader {
public:
    explicit ImageReader(std::string path) : path_(std::move(path)) {}
    bool next(Data& out) override {
        if (done_) return false;
        done_ = true;
        out = Data(readImage(path_));
        return true;
    }
    int frameCount() const override { return 1; }

private:
    std::string path_;
    bool done_ = false;
};

// Frames laid end to end without headers.
class RawReader : public FrameReader {
public:
    RawReader(const std::string& path, const RawDescription& raw) : path_(path), raw_(raw), file_(path, "rb") {
        if (raw.width < 1 || raw.height < 1)
            throw std::runtime_error(path + ": a raw input needs --size WxH and --format (" + yuvFormatList() +
                                     "|bgr565|bgr555)");
        packed_ = isPacked16Format(raw.format);
        if (packed_) {
            frame_ = static_cast<std::size_t>(raw.width) * raw.height * 2;
        } else {
            if (!parseYuvFormat(raw.format, yuv_))
                throw std::runtime_error(raw.format.empty()
                                             ? path + ": a raw input needs --format (" + yuvFormatList() + "|bgr565|bgr555)"
                                             : "unknown format '" + raw.format + "' (use " + yuvFormatList() +
                                                   "|bgr565|bgr555)");
            const std::string why = sizeProblem(yuv_, raw.width, raw.height);
            if (!why.empty()) throw std::runtime_error(why);
            frame_ = frameBytes(yuv_, raw.width, raw.height);
        }
        const long long size = fileSize(path);
        if (size == 0 || size % static_cast<long long>(frame_) != 0)
            throw std::runtime_error(path + ": size mismatch: " + std::to_string(size) + " bytes is not a whole number of " +
                                     std::to_string(raw.width) + "x" + std::to_string(raw.height) + " " + raw.format +
                                     " frames of " + std::to_string(frame_) + " bytes");
        count_ = static_cast<int>(size / static_cast<long long>(frame_));
    }

    bool next(Data& out) override {
        if (index_ >= count_) return false;
        if (packed_) {
            Packed16 p(raw_.format, raw_.width, raw_.height);
            std::vector<std::uint8_t> raw(frame_);
            if (readFully(file_.get(), raw.data(), frame_) != frame_) throw std::runtime_error(path_ + ": read error");
            for (std::size_t i = 0; i < p.words.size(); ++i)
                p.words[i] = static_cast<std::uint16_t>(raw[2 * i] | raw[2 * i + 1] << 8);
            out = Data(std::move(p));
        } else {
            YuvFrame fr(yuv_, raw_.width, raw_.height);
            for (auto& plane : fr.planes)
                if (readFully(file_.get(), plane.data(), plane.size()) != plane.size())
                    throw std::runtime_error(path_ + ": read error");
            out = Data(std::move(fr));
        }
        ++index_;
        return true;
    }
    int frameCount() const override { return count_; }

private:
    std::string path_;
    RawDescription raw_;
    File file_;
    bool packed_ = false;
    YuvFormat yuv_ = YuvFormat::I420;
    std::size_t frame_ = 0;
    int count_ = 0, index_ = 0;
};

// YUV4MPEG2: a header line of space-separated tags, then frames, each a
// "FRAME" line followed by the planes.
class Y4mReader : public FrameReader {
public:
    explicit Y4mReader(const std::string& path) : path_(path), file_(path, "rb") {
        const std::string header = line(1024);
        if (header.compare(0, 10, "YUV4MPEG2 ") != 0 && header != "YUV4MPEG2")
            throw std::runtime_error(path + ": not a Y4M file (no YUV4MPEG2 header)");
        std::string colour = "420jpeg";
        std::size_t pos = 9;
        while (pos < header.size()) {
            while (pos < header.size() && header[pos] == ' ') ++pos;
            const std::size_t end = std::min(header.find(' ', pos), header.size());
            if (end > pos) {
                const std::string tag = header.substr(pos, end - pos);
                const std::string val = tag.substr(1);
                switch (tag[0]) {
                    case 'W': width_ = number(val, "width"); break;
                    case 'H': height_ = number(val, "height"); break;
                    case 'F': rate_ = val; break;
                    case 'C': colour = val; break;
                    case 'I':
                        if (val != "p" && val != "?")
                            std::fprintf(stderr, "zorcc: note: %s is interlaced (I%s); frames are converted as they are\n",
                                         path.c_str(), val.c_str());
                        break;
                    default: break;
                }
            }
            pos = end;
        }
        if (width_ < 1 || height_ < 1) throw std::runtime_error(path + ": Y4M header without a valid W and H");
        if (colour.compare(0, 3, "420") == 0) format_ = YuvFormat::I420;
        else if (colour == "422") format_ = YuvFormat::I422;
        else if (colour == "444") format_ = YuvFormat::I444;
        else if (colour == "411") format_ = YuvFormat::I411;
        else throw std::runtime_error(path + ": Y4M colour space C" + colour + " is not supported (420, 422, 444, 411)");
        const std::string why = sizeProblem(format_, width_, height_);
        if (!why.empty()) throw std::runtime_error(path + ": " + why);
        const long long size = fileSize(path);
        const long long frame = static_cast<long long>(frameBytes(format_, width_, height_)) + 6;
        count_ = static_cast<int>((size - std::ftell(file_.get())) / frame);
    }

    bool next(Data& out) override {
        const int c = std::fgetc(file_.get());
        if (c == EOF) return false;
        std::ungetc(c, file_.get());
        const std::string head = line(4096);
        if (head.compare(0, 5, "FRAME") != 0)
            throw std::runtime_error(path_ + ": frame " + std::to_string(index_) + " does not start with FRAME");
        YuvFrame fr(format_, width_, height_);
        for (auto& plane : fr.planes)
            if (readFully(file_.get(), plane.data(), plane.size()) != plane.size())
                throw std::runtime_error(path_ + ": truncated Y4M: frame " + std::to_string(index_) + " is incomplete");
        ++index_;
        out = Data(std::move(fr));
        return true;
    }
    int frameCount() const override { return count_; }
    std::string frameRate() const override { return rate_; }

private:
    std::string line(std::size_t max) {
        std::string s;
        for (;;) {
            const int c = std::fgetc(file_.get());
            if (c == EOF) throw std::runtime_error(path_ + ": truncated Y4M: " + (index_ == 0 && s.empty() && width_ == 0 ? "no header" : "unterminated line"));
            if (c == '\n') return s;
            s.push_back(static_cast<char>(c));
            if (s.size() > max) throw std::runtime_error(path_ + ": Y4M line too long");
        }
    }
    int number(const std::string& v, const char* what) {
        char* end = nullptr;
        const long n = std::strtol(v.c_str(), &end, 10);
        if (v.empty() || *end != '\0' || n < 1 || n > 65536)
            throw std::runtime_error(path_ + ": bad Y4M " + what + " '" + v + "'");
        return static_cast<int>(n);
    }

    std::string path_;
    File file_;
    int width_ = 0, height_ = 0, count_ = 0, index_ = 0;
    std::string rate_ = "25:1";
    YuvFormat format_ = YuvFormat::I420;
};

}  // namespace

std::unique_ptr<FrameReader> openReader(const std::string& path, const RawDescription& raw) {
    if (isImagePath(path)) return std::make_unique<ImageReader>(path);
    if (extensionOf(path) == "y4m") return std::make_unique<Y4mReader>(path);
    return std::make_unique<RawReader>(path, raw);
}

// ---------------------------------------------------------------------------
// Writers

namespace {

std::string frameName(const std::string& pattern, int index) {
    const auto pos = pattern.find("%d");
    if (pos == std::string::npos) return pattern;
    char num[16];
    std::snprintf(num, sizeof num, "%04d", index);
    return pattern.substr(0, pos) + num + pattern.substr(pos + 2);
}

Picture pictureOf(const Data& d, const std::string& path) {
    switch (d.kind) {
        case Kind::Image: return d.image;
        case Kind::Packed: return Picture(unpackToRgb(d.packed));
        case Kind::Yuv: break;
    }
    throw std::runtime_error("cannot write a " + std::string(formatName(d.yuv.format)) + " frame to the image " + path +
                             " (decode it first, e.g. --op decode, or write .yuv/.y4m)");
}

class ImageWriter : public FrameWriter {
public:
    explicit ImageWriter(std::string pattern) : pattern_(std::move(pattern)) {}
    ~ImageWriter() override {
        if (!finished_)
            for (const auto& p : written_) std::remove(p.c_str());
    }
    void write(const Data& frame) override {
        if (count_ > 0 && pattern_.find("%d") == std::string::npos)
            throw std::runtime_error("the input has several frames: name the output with %d (e.g. frame%d.png), "
                                     "write .y4m/.yuv, or pick one with --frame");
        const std::string name = frameName(pattern_, count_);
        writeImage(name, pictureOf(frame, name));
        written_.push_back(name);
        ++count_;
    }
    void finish() override { finished_ = true; }

private:
    std::string pattern_;
    std::vector<std::string> written_;
    int count_ = 0;
    bool finished_ = false;
};

class StreamWriter : public FrameWriter {
public:
    StreamWriter(std::string path, bool y4m, std::string rate) : file_(path), path_(std::move(path)), y4m_(y4m), rate_(std::move(rate)) {}
    void write(const Data& frame) override {
        if (y4m_) {
            if (frame.kind != Kind::Yuv)
                throw std::runtime_error("a Y4M output holds YUV frames, not a " + std::string(kindName(frame.kind)));
            const YuvFrame& f = frame.yuv;
            const char* tag = y4mTag(f.format);
            if (tag == nullptr)
                throw std::runtime_error(std::string("Y4M holds planar i420, i422, i444 or i411 frames, not ") +
                                         formatName(f.format) + " (add --to i420, or write .yuv)");
            if (count_ == 0) {
                const std::string header = "YUV4MPEG2 W" + std::to_string(f.width) + " H" + std::to_string(f.height) +
                                           " F" + rate_ + " Ip A1:1 C" + tag + "\n";
                file_.write(header.data(), header.size());
                first_ = f;
                first_.planes.clear();
            } else if (f.width != first_.width || f.height != first_.height || f.format != first_.format) {
                throw std::runtime_error("Y4M frames must all have one size and format");
            }
            file_.write("FRAME\n", 6);
            for (const auto& p : f.planes) file_.write(p.data(), p.size());
        } else if (frame.kind == Kind::Yuv) {
            for (const auto& p : frame.yuv.planes) file_.write(p.data(), p.size());
        } else if (frame.kind == Kind::Packed) {
            std::vector<std::uint8_t> le(frame.packed.words.size() * 2);
            for (std::size_t i = 0; i < frame.packed.words.size(); ++i) {
                le[2 * i] = static_cast<std::uint8_t>(frame.packed.words[i]);
                le[2 * i + 1] = static_cast<std::uint8_t>(frame.packed.words[i] >> 8);
            }
            file_.write(le.data(), le.size());
        } else {
            throw std::runtime_error("cannot write an image to the raw file " + path_ +
                                     " (name it .png, .ppm or .pgm, or encode it, e.g. --op encode --to i420)");
        }
        ++count_;
    }
    void finish() override { file_.commit(); }

private:
    AtomicFile file_;
    std::string path_;
    bool y4m_;
    std::string rate_;
    YuvFrame first_;
    int count_ = 0;
};

}  // namespace

std::unique_ptr<FrameWriter> openWriter(const std::string& path, const std::string& frameRate) {
    if (isImagePath(path)) return std::make_unique<ImageWriter>(path);
    return std::make_unique<StreamWriter>(path, extensionOf(path) == "y4m", frameRate);
}

}  // namespace zorcc_tool
