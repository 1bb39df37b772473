#include "yuv_io.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <stdexcept>

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

void YuvFrame::reshape(YuvFormat f, int w, int h) {
    const std::string why = sizeProblem(f, w, h);
    if (!why.empty()) throw std::runtime_error(why);
    format = f, width = w, height = h;
    int n = 3;
    if (f == YuvFormat::NV12) n = 2;
    if (f == YuvFormat::YUY2 || f == YuvFormat::UYVY) n = 1;
    planes.resize(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) planes[i].resize(static_cast<std::size_t>(planeWidth(i)) * planeHeight(i));
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
        case YuvFormat::I420: return "420";
        case YuvFormat::I422: return "422";
        case YuvFormat::I444: return "444";
        case YuvFormat::I411: return "411";
        default: return nullptr;
    }
}

// ---------------------------------------------------------------------------
// Readers

namespace {

constexpr bool kBigEndianHost = __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__;

// Reads `bytes` bytes into buf. A buffer still too small grows as the data
// arrives, so that an input which declares a huge frame and ends early never
// makes the tool allocate the whole frame. Returns the bytes read.
template <typename T>
std::size_t readGrowing(InputFile& in, std::vector<T>& buf, std::size_t bytes) {
    if (buf.size() * sizeof(T) >= bytes) return in.read(buf.data(), bytes);
    std::size_t got = 0;
    while (got < bytes) {
        const std::size_t want = std::min(bytes, std::max<std::size_t>(2 * got, std::size_t(1) << 20));
        buf.resize((want + sizeof(T) - 1) / sizeof(T));
        const std::size_t n = in.read(reinterpret_cast<std::uint8_t*>(buf.data()) + got, want - got);
        got += n;
        if (got < want) break;
    }
    return got;
}

// Reads the frame's planes, one after the other. A frame not yet of its
// final shape is first read whole into `stage` (see readGrowing).
bool readPlanes(InputFile& in, YuvFrame& f, YuvFormat format, int w, int h, std::vector<std::uint8_t>& stage) {
    if (f.format != format || f.width != w || f.height != h || f.planes.empty()) {
        const std::size_t n = frameBytes(format, w, h);
        if (readGrowing(in, stage, n) != n) return false;
        f.reshape(format, w, h);
        std::size_t at = 0;
        for (auto& p : f.planes) {
            std::memcpy(p.data(), stage.data() + at, p.size());
            at += p.size();
        }
        std::vector<std::uint8_t>().swap(stage);
        return true;
    }
    for (auto& p : f.planes)
        if (in.read(p.data(), p.size()) != p.size()) return false;
    return true;
}

class ImageReader : public FrameReader {
public:
    ImageReader(std::unique_ptr<InputFile> in, FileFormat f) : in_(std::move(in)), format_(f) {}
    bool next(Data& out) override {
        if (done_) return false;
        done_ = true;
        out.kind = Kind::Image;
        out.image = format_ == FileFormat::Png ? readPng(*in_) : readPnm(*in_);
        return true;
    }
    int frameCount() const override { return 1; }
    Kind kind() const override { return Kind::Image; }
    FileFormat format() const override { return format_; }

private:
    std::unique_ptr<InputFile> in_;
    FileFormat format_;
    bool done_ = false;
};

// Frames laid end to end without headers.
class RawReader : public FrameReader {
public:
    RawReader(std::unique_ptr<InputFile> in, const RawDescription& raw) : in_(std::move(in)), raw_(raw) {
        const std::string& path = in_->name();
        const std::string formats = yuvFormatList() + "|bgr565|bgr555";
        if (raw.width < 1 || raw.height < 1)
            throw std::runtime_error(path + ": a raw input needs --size WxH and --format (" + formats + ")");
        packed_ = isPacked16Format(raw.format);
        if (packed_) {
            frame_ = static_cast<std::size_t>(raw.width) * raw.height * 2;
        } else {
            if (!parseYuvFormat(raw.format, yuv_))
                throw std::runtime_error(raw.format.empty() ? path + ": a raw input needs --format (" + formats + ")"
                                                            : "unknown format '" + raw.format + "' (use " + formats + ")");
            const std::string why = sizeProblem(yuv_, raw.width, raw.height);
            if (!why.empty()) throw std::runtime_error(why);
            frame_ = frameBytes(yuv_, raw.width, raw.height);
        }
        const long long size = in_->remaining();
        if (size == 0 || (size > 0 && size % static_cast<long long>(frame_) != 0))
            throw std::runtime_error(mismatch(size == 0 ? "" : std::to_string(size) + " bytes"));
        count_ = size < 0 ? 0 : static_cast<int>(size / static_cast<long long>(frame_));
    }

    bool next(Data& out) override {
        if (in_->peek(1).empty()) return false;
        bool whole;
        if (packed_) {
            out.kind = Kind::Packed;
            Packed16& p = out.packed;
            whole = readGrowing(*in_, p.words, frame_) == frame_;
            p.reshape(raw_.format, raw_.width, raw_.height);
            if (kBigEndianHost)
                for (auto& w : p.words) w = static_cast<std::uint16_t>(w << 8 | w >> 8);
        } else {
            out.kind = Kind::Yuv;
            whole = readPlanes(*in_, out.yuv, yuv_, raw_.width, raw_.height, stage_);
        }
        if (!whole) throw std::runtime_error(mismatch("the input ending inside frame " + std::to_string(index_)));
        ++index_;
        return true;
    }
    int frameCount() const override { return count_; }
    Kind kind() const override { return packed_ ? Kind::Packed : Kind::Yuv; }
    FileFormat format() const override { return FileFormat::Raw; }

private:
    std::string mismatch(const std::string& what) const {
        return in_->name() + ": size mismatch: " + (what.empty() ? "an empty input" : what) +
               " is not a whole number of " + std::to_string(raw_.width) + "x" + std::to_string(raw_.height) + " " +
               raw_.format + " frames of " + std::to_string(frame_) + " bytes";
    }

    std::unique_ptr<InputFile> in_;
    RawDescription raw_;
    bool packed_ = false;
    YuvFormat yuv_ = YuvFormat::I420;
    std::size_t frame_ = 0;
    int count_ = 0, index_ = 0;
    std::vector<std::uint8_t> stage_;
};

// Colour-space tags of 8-bit Y4M streams.
struct Y4mChroma {
    const char* tag;
    YuvFormat format;
    const char* siting;
};
const Y4mChroma kY4mChroma[] = {{"420jpeg", YuvFormat::I420, "jpeg"}, {"420mpeg2", YuvFormat::I420, "mpeg2"},
                                {"420paldv", YuvFormat::I420, "paldv"}, {"420", YuvFormat::I420, ""},
                                {"422", YuvFormat::I422, ""},           {"444", YuvFormat::I444, ""},
                                {"411", YuvFormat::I411, ""}};

// YUV4MPEG2: a header line of space-separated tags, then frames, each a
// "FRAME" line followed by the planes. Samples of more than 8 bits (two
// bytes each, little-endian) are taken to 8 bits by the library's bit-depth
// reduction: a b-bit sample v is first scaled to 16 bits as
// v' = v << (16 - b), then v' + (v' >> 8), which puts v / 2^(b-8) on the
// 8-bit level of the same value (940 at 10 bits is 235), and is then reduced
// to 256 levels by the dither method asked for.
class Y4mReader : public FrameReader {
public:
    Y4mReader(std::unique_ptr<InputFile> in, const ReadOptions& o) : in_(std::move(in)), dither_(o.dither) {
        const std::string& path = in_->name();
        const std::string header = line(1024);
        if (header.compare(0, 10, "YUV4MPEG2 ") != 0 && header != "YUV4MPEG2")
            throw std::runtime_error(path + ": not a Y4M file (no YUV4MPEG2 header)");
        std::string colour = "420jpeg";
        info_.aspect.clear();
        std::size_t pos = 9;
        while (pos < header.size()) {
            while (pos < header.size() && header[pos] == ' ') ++pos;
            const std::size_t end = std::min(header.find(' ', pos), header.size());
            if (end > pos) tag(header.substr(pos, end - pos), colour);
            pos = end;
        }
        if (width_ < 1 || height_ < 1) throw std::runtime_error(path + ": Y4M header without a valid W and H");
        parseColour(colour, path);
        const std::string why = sizeProblem(format_, width_, height_);
        if (!why.empty()) throw std::runtime_error(path + ": " + why);
        frame_ = frameBytes(format_, width_, height_) * (bits_ > 8 ? 2 : 1);
        // A regular file is checked before anything is allocated.
        const long long left = in_->remaining();
        if (left > 0 && static_cast<unsigned long long>(left) < frame_ + 6)
            throw std::runtime_error(path + ": truncated Y4M: a " + std::to_string(width_) + "x" +
                                     std::to_string(height_) + " C" + colour + " frame takes " +
                                     std::to_string(frame_ + 6) + " bytes, the file has " + std::to_string(left) +
                                     " left");
        count_ = left > 0 ? static_cast<int>(left / static_cast<long long>(frame_ + 6)) : 0;

        auto note = [&](const std::string& text) {
            if (!o.quiet) std::fprintf(stderr, "zorcc: note: %s: %s\n", path.c_str(), text.c_str());
        };
        if (info_.interlace != "p" && info_.interlace != "?")
            note("interlaced (I" + info_.interlace + "); frames are converted whole, and a Y4M output keeps the tag");
        if (!info_.siting.empty() && info_.siting != "jpeg")
            note("4:2:0 chroma sited as in C420" + info_.siting +
                 "; chroma samples are used where they are, and a 4:2:0 Y4M output keeps the tag");
        if (bits_ > 8)
            note(std::to_string(bits_) + "-bit samples reduced to 8 bits (" + ditherName(dither_) + ", --in-dither)");
    }

    bool next(Data& out) override {
        const int c = in_->get();
        if (c == EOF) return false;
        const std::string head = static_cast<char>(c) + line(4096);
        if (head.compare(0, 5, "FRAME") != 0)
            throw std::runtime_error(in_->name() + ": frame " + std::to_string(index_) + " does not start with FRAME");
        out.kind = Kind::Yuv;
        YuvFrame& f = out.yuv;
        bool whole;
        if (bits_ == 8) {
            whole = readPlanes(*in_, f, format_, width_, height_, stage_);
        } else {
            whole = readGrowing(*in_, wide_, frame_) == frame_;
            if (whole) reduce(f);
        }
        if (!whole)
            throw std::runtime_error(in_->name() + ": truncated Y4M: frame " + std::to_string(index_) + " is incomplete");
        ++index_;
        return true;
    }
    int frameCount() const override { return count_; }
    Kind kind() const override { return Kind::Yuv; }
    FileFormat format() const override { return FileFormat::Y4m; }

private:
    static std::string ditherName(ZorDitherType d) {
        const char* names[] = {"none", "fs", "jjn", "stucki", "bayer"};
        return names[d];
    }

    void tag(const std::string& t, std::string& colour) {
        const std::string val = t.substr(1);
        switch (t[0]) {
            case 'W': width_ = number(val, "width"); break;
            case 'H': height_ = number(val, "height"); break;
            case 'F': info_.rate = val; break;
            case 'I': info_.interlace = val; break;
            case 'A': info_.aspect = val; break;
            case 'C': colour = val; break;
            case 'X':
                if (val == "COLORRANGE=FULL") info_.range = Range::Full;
                else if (val == "COLORRANGE=LIMITED") info_.range = Range::Limited;
                else if (val.compare(0, 6, "YSCSS=") != 0) info_.extra.push_back(t);  // YSCSS restates C
                break;
            default: break;
        }
    }

    void parseColour(const std::string& colour, const std::string& path) {
        for (const Y4mChroma& c : kY4mChroma)
            if (colour == c.tag) {
                format_ = c.format;
                info_.siting = c.siting;
                return;
            }
        // 420p10, 422p12, 444p16, ...: samples of 9 to 16 bits, siting not given.
        const std::string base = colour.substr(0, 3);
        char* end = nullptr;
        const long bits = colour.size() > 4 && colour[3] == 'p' ? std::strtol(colour.c_str() + 4, &end, 10) : 0;
        if ((base == "420" || base == "422" || base == "444") && end != nullptr && *end == '\0' && bits >= 9 &&
            bits <= 16 && std::isdigit(static_cast<unsigned char>(colour[4]))) {
            format_ = base == "420" ? YuvFormat::I420 : base == "422" ? YuvFormat::I422 : YuvFormat::I444;
            info_.siting.clear();
            bits_ = static_cast<int>(bits);
            return;
        }
        throw std::runtime_error(path + ": Y4M colour space C" + colour +
                                 " is not supported (420jpeg, 420mpeg2, 420paldv, 420, 422, 444, 411, and 420, 422, "
                                 "444 of 9 to 16 bits as in 420p10)");
    }

    // The wide samples of one frame, plane by plane, to the 8-bit frame.
    void reduce(YuvFrame& f) {
        f.reshape(format_, width_, height_);
        const unsigned mask = (1u << bits_) - 1;
        std::uint16_t* src = wide_.data();
        for (int i = 0; i < f.planeCount(); ++i) {
            const int w = f.planeWidth(i), h = f.planeHeight(i);
            const std::size_t n = static_cast<std::size_t>(w) * h;
            for (std::size_t k = 0; k < n; ++k) {
                unsigned v = src[k];
                if (kBigEndianHost) v = (v << 8 | v >> 8) & 0xffff;
                v = (v & mask) << (16 - bits_);
                src[k] = static_cast<std::uint16_t>(std::min(65535u, v + (v >> 8)));
            }
            const ZorStatus st = zoriReduceBits_16u8u_C1R(src, 2 * w, f.plane(i), w, ZoriSize{w, h}, 0, dither_, 256);
            if (st < 0) throw std::runtime_error("zoriReduceBits_16u8u_C1R failed with status " + std::to_string(st));
            src += n;
        }
    }

    std::string line(std::size_t max) {
        std::string s;
        for (;;) {
            const int c = in_->get();
            if (c == EOF)
                throw std::runtime_error(in_->name() + ": truncated Y4M: " +
                                         (index_ == 0 && s.empty() && width_ == 0 ? "no header" : "unterminated line"));
            if (c == '\n') return s;
            s.push_back(static_cast<char>(c));
            if (s.size() > max) throw std::runtime_error(in_->name() + ": Y4M line too long");
        }
    }
    int number(const std::string& v, const char* what) {
        char* end = nullptr;
        const long n = std::strtol(v.c_str(), &end, 10);
        if (v.empty() || *end != '\0' || n < 1 || n > 65536)
            throw std::runtime_error(in_->name() + ": bad Y4M " + what + " '" + v + "'");
        return static_cast<int>(n);
    }

    std::unique_ptr<InputFile> in_;
    ZorDitherType dither_;
    int width_ = 0, height_ = 0, bits_ = 8, count_ = 0, index_ = 0;
    std::size_t frame_ = 0;
    YuvFormat format_ = YuvFormat::I420;
    std::vector<std::uint8_t> stage_;
    std::vector<std::uint16_t> wide_;
};

}  // namespace

std::unique_ptr<FrameReader> openReader(const std::string& path, const ReadOptions& o) {
    auto in = std::make_unique<InputFile>(path);
    FileFormat f = o.format;
    if (f == FileFormat::Unknown && !o.raw.format.empty()) f = FileFormat::Raw;
    if (f == FileFormat::Unknown) {
        const std::string head = in->peek(9);
        if (head.empty()) throw std::runtime_error(in->name() + " is empty");
        f = sniffFormat(head);
    }
    // A damaged file of a known kind is reported as one.
    if (f == FileFormat::Unknown) f = formatOfExtension(path);
    switch (f) {
        case FileFormat::Png:
        case FileFormat::Pnm: return std::make_unique<ImageReader>(std::move(in), f);
        case FileFormat::Y4m: return std::make_unique<Y4mReader>(std::move(in), o);
        default: return std::make_unique<RawReader>(std::move(in), o.raw);
    }
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

class ImageWriter : public FrameWriter {
public:
    ImageWriter(std::string pattern, FileFormat f) : pattern_(std::move(pattern)), format_(f) {}
    ~ImageWriter() override {
        if (!finished_)
            for (const auto& p : written_) std::remove(p.c_str());
    }
    void write(const Data& frame, const StreamInfo&) override {
        if (count_ > 0 && pattern_.find("%d") == std::string::npos)
            throw std::runtime_error("the input has several frames: name the output with %d (e.g. frame%d.png), "
                                     "write .y4m/.yuv, or pick one with --frame");
        const std::string name = frameName(pattern_, count_);
        if (frame.kind == Kind::Yuv)
            throw std::runtime_error("cannot write a " + std::string(formatName(frame.yuv.format)) + " frame to the image " +
                                     name + " (decode it first, e.g. --op decode, or write .yuv/.y4m)");
        writeImage(name, frame.kind == Kind::Packed ? Picture(unpackToRgb(frame.packed)) : frame.image, format_);
        if (name != "-") written_.push_back(name);
        ++count_;
    }
    void finish() override { finished_ = true; }

private:
    std::string pattern_;
    FileFormat format_;
    std::vector<std::string> written_;
    int count_ = 0;
    bool finished_ = false;
};

std::string y4mHeader(const YuvFrame& f, const StreamInfo& s) {
    std::string h = "YUV4MPEG2 W" + std::to_string(f.width) + " H" + std::to_string(f.height) + " F" + s.rate + " I" +
                    s.interlace;
    if (!s.aspect.empty()) h += " A" + s.aspect;
    h += " C" + std::string(y4mTag(f.format)) + (f.format == YuvFormat::I420 ? s.siting : "");
    if (s.range != Range::Unknown) h += s.range == Range::Full ? " XCOLORRANGE=FULL" : " XCOLORRANGE=LIMITED";
    for (const std::string& x : s.extra) h += " " + x;
    return h + "\n";
}

class StreamWriter : public FrameWriter {
public:
    StreamWriter(const std::string& path, bool y4m) : file_(path), y4m_(y4m) {}
    void write(const Data& frame, const StreamInfo& info) override {
        if (y4m_) {
            if (frame.kind != Kind::Yuv)
                throw std::runtime_error("a Y4M output holds YUV frames, not a " + std::string(kindName(frame.kind)));
            const YuvFrame& f = frame.yuv;
            if (y4mTag(f.format) == nullptr)
                throw std::runtime_error(std::string("Y4M holds planar i420, i422, i444 or i411 frames, not ") +
                                         formatName(f.format) + " (add --to i420, or write .yuv)");
            if (count_ == 0) {
                const std::string header = y4mHeader(f, info);
                file_.write(header.data(), header.size());
                format_ = f.format, width_ = f.width, height_ = f.height;
            } else if (f.width != width_ || f.height != height_ || f.format != format_) {
                throw std::runtime_error("Y4M frames must all have one size and format");
            }
            file_.write("FRAME\n", 6);
        }
        if (frame.kind == Kind::Yuv) {
            for (const auto& p : frame.yuv.planes) file_.write(p.data(), p.size());
        } else if (frame.kind == Kind::Packed) {
            const auto& words = frame.packed.words;
            if (kBigEndianHost) {
                std::vector<std::uint8_t> le(words.size() * 2);
                for (std::size_t i = 0; i < words.size(); ++i)
                    le[2 * i] = static_cast<std::uint8_t>(words[i]), le[2 * i + 1] = static_cast<std::uint8_t>(words[i] >> 8);
                file_.write(le.data(), le.size());
            } else {
                file_.write(words.data(), words.size() * 2);
            }
        } else {
            throw std::runtime_error("cannot write an image to the raw file " + file_.path() +
                                     " (name it .png, .ppm or .pgm, or encode it, e.g. --op encode --to i420)");
        }
        ++count_;
    }
    void finish() override { file_.commit(); }

private:
    OutputFile file_;
    bool y4m_;
    YuvFormat format_ = YuvFormat::I420;
    int width_ = 0, height_ = 0, count_ = 0;
};

}  // namespace

std::unique_ptr<FrameWriter> openWriter(const std::string& path, FileFormat format) {
    if (format == FileFormat::Png || format == FileFormat::Pnm) return std::make_unique<ImageWriter>(path, format);
    return std::make_unique<StreamWriter>(path, format == FileFormat::Y4m);
}

}  // namespace zorcc_tool
