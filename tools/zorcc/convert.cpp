#include "commands.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace zorcc_tool {

void parseSize(const std::string& text, int& w, int& h) {
    const auto x = text.find('x');
    char* end = nullptr;
    long a = 0, b = 0;
    if (x != std::string::npos && x > 0 && x + 1 < text.size()) {
        a = std::strtol(text.c_str(), &end, 10);
        if (end == text.c_str() + x) b = std::strtol(text.c_str() + x + 1, &end, 10);
        else end = nullptr;
    }
    if (end == nullptr || *end != '\0' || a < 1 || b < 1 || a > 65536 || b > 65536)
        throw std::runtime_error("bad size '" + text + "' (use WxH, e.g. 1920x1080)");
    w = static_cast<int>(a);
    h = static_cast<int>(b);
}

namespace {

std::vector<const Op*> parseChain(const std::string& text) {
    std::vector<const Op*> chain;
    std::size_t pos = 0;
    while (pos <= text.size()) {
        const std::size_t end = std::min(text.find(',', pos), text.size());
        const std::string name = text.substr(pos, end - pos);
        const Op* op = findOp(name);
        if (op == nullptr) throw std::runtime_error("unknown op '" + name + "' (zorcc list shows every op)");
        chain.push_back(op);
        pos = end + 1;
    }
    return chain;
}

std::string kindsText(int kinds) {
    std::string s;
    for (Kind k : {Kind::Image, Kind::Yuv, Kind::Packed})
        if (kinds & static_cast<int>(k)) s += (s.empty() ? "" : " or ") + std::string(kindName(k));
    return s;
}

// A one-line progress bar on standard error, drawn only when that is a
// terminal, at most ten times a second: frames done, frames per second and,
// when the frame count is known, the time left.
class Progress {
public:
    using Clock = std::chrono::steady_clock;
    Progress(bool on, int total) : on_(on && ::isatty(STDERR_FILENO)), total_(total), start_(Clock::now()) {}
    void update(int done, bool last = false) {
        if (!on_) return;
        const auto now = Clock::now();
        if (!last && drawn_ && now - shown_ < std::chrono::milliseconds(100)) return;
        shown_ = now;
        const double sec = std::chrono::duration<double>(now - start_).count();
        const double fps = sec > 0 ? done / sec : 0;
        char text[160];
        if (total_ > 0) {
            total_ = std::max(total_, done);  // a Y4M count is an estimate
            const int width = 30, fill = static_cast<int>(static_cast<long long>(done) * width / total_);
            const int left = fps > 0 ? static_cast<int>(std::ceil((total_ - done) / fps)) : 0;
            std::snprintf(text, sizeof text, "[%s%s] %d/%d frames  %.1f frames/s  %d:%02d left",
                          std::string(static_cast<std::size_t>(fill), '#').c_str(),
                          std::string(static_cast<std::size_t>(width - fill), '.').c_str(), done, total_, fps, left / 60,
                          left % 60);
        } else {
            std::snprintf(text, sizeof text, "%d frames  %.1f frames/s", done, fps);
        }
        std::fprintf(stderr, "\rzorcc: %s\x1b[K", text);
        std::fflush(stderr);
        drawn_ = true;
    }
    ~Progress() {
        if (drawn_) std::fprintf(stderr, "\n");
    }

private:
    bool on_;
    int total_;
    Clock::time_point start_, shown_;
    bool drawn_ = false;
};

}  // namespace

int runConvert(const ConvertArgs& a) {
    const std::vector<const Op*> chain = parseChain(a.ops);
    if (a.in != "-" && a.out != "-") {
        namespace fs = std::filesystem;
        std::error_code ec;
        if (fs::exists(a.out, ec) && fs::equivalent(a.in, a.out, ec))
            throw std::runtime_error("the output " + a.out + " is the input file");
    }
    ReadOptions ro;
    if (!a.size.empty()) parseSize(a.size, ro.raw.width, ro.raw.height);
    ro.raw.format = a.format;
    if (!a.inFormat.empty()) ro.format = parseFileFormat(a.inFormat);
    ro.dither = ditherOf(a.inDither);
    ro.quiet = a.quiet;
    auto reader = openReader(a.in, ro);

    // The chain as a whole, before any frame is read: what each op takes,
    // and what a Y4M output will say about range, siting and interlacing.
    StreamInfo info = reader->info();
    const std::string inName = a.in == "-" ? "standard input" : a.in;
    Kind kind = reader->kind();
    for (const Op* op : chain) {
        if ((op->inKinds & static_cast<int>(kind)) == 0)
            throw std::runtime_error("op '" + op->name + "' takes " + kindsText(op->inKinds) + " input, not a " +
                                     kindName(kind) +
                                     (op->inKinds & static_cast<int>(Kind::Yuv)
                                          ? " (raw .yuv with --size and --format, or .y4m)"
                                          : ""));
        if (op->range == RangeUse::ReadsStudio && kind == Kind::Yuv && info.range == Range::Full)
            throw std::runtime_error(inName + " is full range (XCOLORRANGE=FULL), and " + op->name +
                                     " reads studio-range YCbCr (Y 16..235, Cb and Cr 16..240) only");
        if (op->range == RangeUse::WritesStudio) info.range = Range::Limited;
        else if (op->range != RangeUse::Keeps) info.range = Range::Unknown;
        if (op->range != RangeUse::Keeps) info.siting = "jpeg";
        if (op->progressive) info.interlace = "p";
        kind = op->outKind;
    }
    FileFormat outFormat = a.outFormat.empty() ? formatOfExtension(a.out) : parseFileFormat(a.outFormat);
    if (outFormat == FileFormat::Unknown) {
        // Standard output takes the input's container where the result fits it.
        const FileFormat f = reader->format();
        outFormat = a.out != "-"           ? FileFormat::Raw
                    : kind == Kind::Image  ? (f == FileFormat::Pnm ? f : FileFormat::Png)
                    : kind == Kind::Yuv && f == FileFormat::Y4m ? f
                                                                : FileFormat::Raw;
    }

    int total = reader->frameCount();
    if (a.frame >= 0) total = 1;
    else if (a.frames > 0 && (total == 0 || a.frames < total)) total = a.frames;
    auto writer = openWriter(a.out, outFormat);

    Progress progress(!a.quiet && total != 1, total);
    int index = 0, written = 0;
    Data input;
    std::vector<Work> work(chain.size());
    while (reader->next(input)) {
        const int i = index++;
        if (a.frame >= 0 && i != a.frame) continue;
        const Data* frame = &input;
        for (std::size_t k = 0; k < chain.size(); ++k) {
            chain[k]->run(*frame, work[k], a.options);
            frame = &work[k].out;
        }
        writer->write(*frame, info);
        progress.update(++written);
        if (a.frame >= 0 || (a.frames > 0 && written == a.frames)) break;
    }
    progress.update(written, true);
    if (written == 0)
        throw std::runtime_error(a.frame >= 0 ? inName + " has no frame " + std::to_string(a.frame) + " (it has " +
                                                    std::to_string(index) + ")"
                                              : inName + " holds no frame");
    writer->finish();
    return 0;
}

int runList(bool verbose) {
    std::string family;
    for (const Op& op : allOps()) {
        if (op.family != family) {
            family = op.family;
            std::printf("%s%s:\n", family == allOps().front().family ? "" : "\n", family.c_str());
        }
        std::printf("  %-18s %s\n", op.name.c_str(), op.description.c_str());
        if (verbose) {
            for (const std::string& f : op.functions) std::printf("  %-18s   calls %s\n", "", f.c_str());
        } else {
            std::string calls;
            for (const std::string& f : op.functions) calls += (calls.empty() ? "" : "; ") + f;
            std::printf("  %-18s   calls %s\n", "", calls.c_str());
        }
    }
    return 0;
}

}  // namespace zorcc_tool
