// Raw video frames of the zorcc tool: planar, semi-planar and packed YUV,
// packed 16-bit RGB words, and Y4M streams.
#pragma once

#include "image_io.h"

#include "zorcc.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zorcc_tool {

// Layouts of 8-bit YUV frames (Y, then Cb = U, then Cr = V):
//   i444  three planes w x h          i422  Y w x h, U and V w/2 x h
//   i420  Y w x h, U and V w/2 x h/2   i411  Y w x h, U and V w/4 x h
//   nv12  Y w x h, one plane of U V pairs, w bytes x h/2
//   yuy2  one plane of Y0 U Y1 V per pixel pair, 2w bytes x h
//   uyvy  one plane of U Y0 V Y1 per pixel pair, 2w bytes x h
enum class YuvFormat { I444, I422, I420, I411, NV12, YUY2, UYVY };

const char* formatName(YuvFormat f);
// Parses a format name; returns false for an unknown one.
bool parseYuvFormat(const std::string& name, YuvFormat& out);
// "i420|nv12|..." for messages and help texts.
std::string yuvFormatList();

struct YuvFrame {
    YuvFormat format = YuvFormat::I420;
    int width = 0;
    int height = 0;
    std::vector<std::vector<std::uint8_t>> planes;

    YuvFrame() = default;
    // Allocates the planes; throws std::runtime_error when the size does not
    // suit the format (even width for 4:2:2 and 4:2:0, even height for
    // 4:2:0, width a multiple of 4 for 4:1:1).
    YuvFrame(YuvFormat f, int w, int h) { reshape(f, w, h); }
    // The same for a frame in use: its planes keep their memory when it is
    // big enough (their samples are then left as they were).
    void reshape(YuvFormat f, int w, int h);
    int planeCount() const { return static_cast<int>(planes.size()); }
    int planeWidth(int i) const;  // bytes per row
    int planeHeight(int i) const;
    std::uint8_t* plane(int i) { return planes[i].data(); }
    const std::uint8_t* plane(int i) const { return planes[i].data(); }
    int step(int i) const { return planeWidth(i); }
};

// Checks a size for a format; returns an empty string or the reason.
std::string sizeProblem(YuvFormat f, int w, int h);
std::size_t frameBytes(YuvFormat f, int w, int h);

// Packed 16-bit RGB pixels (words in host order, stored little-endian in
// raw files): rgb565, bgr565, rgb555, bgr555, rgb444, bgr444, named by the
// channels from the low end of the word upward: rgb565 has R in bits 0-4,
// G in 5-10 and B in 11-15 (what ffmpeg calls bgr565le).
struct Packed16 {
    std::string format = "rgb565";
    int width = 0;
    int height = 0;
    std::vector<std::uint16_t> words;

    Packed16() = default;
    Packed16(std::string f, int w, int h) { reshape(std::move(f), w, h); }
    void reshape(std::string f, int w, int h) {
        format = std::move(f), width = w, height = h;
        words.resize(static_cast<std::size_t>(w) * h);
    }
    int step() const { return width * 2; }
};
bool isPacked16Format(const std::string& name);
// Expands the words to 8-bit RGB by bit replication, for viewing.
Image8 unpackToRgb(const Packed16& p);

// What flows through the tool: an image, a YUV frame or packed words.
enum class Kind { Image = 1, Yuv = 2, Packed = 4 };
const char* kindName(Kind k);

struct Data {
    Kind kind = Kind::Image;
    Picture image;
    YuvFrame yuv;
    Packed16 packed;

    Data() = default;
    explicit Data(Picture p) : kind(Kind::Image), image(std::move(p)) {}
    explicit Data(YuvFrame f) : kind(Kind::Yuv), yuv(std::move(f)) {}
    explicit Data(Packed16 p) : kind(Kind::Packed), packed(std::move(p)) {}
};

// How a raw (headerless) file is to be read: its frame size and format.
struct RawDescription {
    int width = 0;
    int height = 0;
    std::string format;  // a YUV format or a packed 16-bit one
};

// What a reader was told.
struct ReadOptions {
    FileFormat format = FileFormat::Unknown;  // Unknown: by content, then by extension
    RawDescription raw;
    // How Y4M samples of more than 8 bits are reduced to 8 bits.
    ZorDitherType dither = zorDitherNone;
    bool quiet = false;  // no notes on standard error
};

enum class Range { Unknown, Limited, Full };

// The stream's description that a Y4M output carries over from the input.
struct StreamInfo {
    std::string rate = "25:1";   // F
    std::string interlace = "p";  // I: p, t, b, m or ?
    std::string aspect = "1:1";  // A (empty: not given)
    Range range = Range::Unknown;  // XCOLORRANGE
    std::string siting = "jpeg";  // 4:2:0 chroma siting: jpeg, mpeg2, paldv or "" (not given)
    std::vector<std::string> extra;  // other X tags, as they were
};

// A source of frames: one image, or the frames of a raw or Y4M input. The
// frame given to next() is reshaped in place, so a stream of frames of one
// shape is read without allocating.
class FrameReader {
public:
    virtual ~FrameReader() = default;
    // Next frame, or false at the clean end of the input. Throws
    // std::runtime_error on a damaged input.
    virtual bool next(Data& out) = 0;
    // Number of frames if known in advance (0 if not).
    virtual int frameCount() const = 0;
    virtual Kind kind() const = 0;
    virtual FileFormat format() const = 0;
    virtual const StreamInfo& info() const { return info_; }

protected:
    StreamInfo info_;
};

// Opens IN ("-": standard input), recognised by --in-format, by --format
// (a raw layout), by its first bytes (PNG, Y4M, PGM/PPM), by its extension,
// or else as raw frames that need the raw description's size and format.
std::unique_ptr<FrameReader> openReader(const std::string& path, const ReadOptions& options);

// A sink of frames; a file's content is in place after finish().
class FrameWriter {
public:
    virtual ~FrameWriter() = default;
    virtual void write(const Data& frame, const StreamInfo& info) = 0;
    virtual void finish() = 0;
};

// Opens OUT ("-": standard output) as images (one frame; a '%d' in the name
// numbers several frames), Y4M (4:2:0, 4:2:2, 4:4:4 or 4:1:1 planar frames),
// or raw (YUV frames or packed words as they are).
std::unique_ptr<FrameWriter> openWriter(const std::string& path, FileFormat format);

// Y4M colour-space tag of a format ("420", "422", ...), or nullptr.
const char* y4mTag(YuvFormat f);

}  // namespace zorcc_tool
