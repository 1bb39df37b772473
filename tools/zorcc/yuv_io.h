// Raw video frames of the zorcc tool: planar, semi-planar and packed YUV,
// packed 16-bit RGB words, and Y4M streams.
#pragma once

#include "image_io.h"

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
    YuvFrame(YuvFormat f, int w, int h);
    int planeCount() const { return static_cast<int>(planes.size()); }
    int planeWidth(int i) const;  // bytes per row
    int planeHeight(int i) const;
    std::uint8_t* plane(int i) { return planes[i].data(); }
    const std::uint8_t* plane(int i) const { return planes[i].data(); }
    int step(int i) const { return planeWidth(i); }
    std::size_t byteSize() const;
};

// Checks a size for a format; returns an empty string or the reason.
std::string sizeProblem(YuvFormat f, int w, int h);
std::size_t frameBytes(YuvFormat f, int w, int h);

// Packed 16-bit RGB pixels (words in host order, stored little-endian in
// raw files): rgb565, bgr565, rgb555, bgr555, rgb444, bgr444, named by the
// channels from the low end of the word upward.
struct Packed16 {
    std::string format = "rgb565";
    int width = 0;
    int height = 0;
    std::vector<std::uint16_t> words;

    Packed16() = default;
    Packed16(std::string f, int w, int h)
        : format(std::move(f)), width(w), height(h), words(static_cast<std::size_t>(w) * h) {}
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

// A source of frames: one image, or the frames of a raw or Y4M file.
class FrameReader {
public:
    virtual ~FrameReader() = default;
    // Next frame, or false at the clean end of the input. Throws
    // std::runtime_error on a damaged input.
    virtual bool next(Data& out) = 0;
    // Number of frames if known in advance (0 if not).
    virtual int frameCount() const = 0;
    // Y4M frame rate of the input ("25:1" when there is none).
    virtual std::string frameRate() const { return "25:1"; }
};

// Opens IN: an image by extension (png, ppm, pgm, pnm), a Y4M stream (y4m),
// anything else as a raw file, which needs the raw description's size and format.
std::unique_ptr<FrameReader> openReader(const std::string& path, const RawDescription& raw);

// A sink of frames written to a temporary name and renamed by finish().
class FrameWriter {
public:
    virtual ~FrameWriter() = default;
    virtual void write(const Data& frame) = 0;
    virtual void finish() = 0;
};

// Opens OUT by extension: images (one frame; a '%d' in the name numbers
// several frames), y4m (YUV 4:2:0, 4:2:2, 4:4:4 or 4:1:1 planar frames), or
// raw (anything else: YUV frames or packed words as they are).
std::unique_ptr<FrameWriter> openWriter(const std::string& path, const std::string& frameRate);

// Y4M colour-space tag of a format ("420jpeg", "422", ...), or nullptr.
const char* y4mTag(YuvFormat f);

}  // namespace zorcc_tool
