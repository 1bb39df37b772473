#include "commands.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

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

// A one-line progress bar on standard error.
class Progress {
public:
    Progress(bool on, int total) : on_(on), total_(total) {}
    void update(int done) {
        if (!on_) return;
        if (total_ > 0) {
            total_ = std::max(total_, done);  // a Y4M count is an estimate
            const int width = 30, fill = static_cast<int>(static_cast<long long>(done) * width / total_);
            std::fprintf(stderr, "\rzorcc: [%s%s] %d/%d frames", std::string(static_cast<std::size_t>(fill), '#').c_str(),
                         std::string(static_cast<std::size_t>(width - fill), '.').c_str(), done, total_);
        } else {
            std::fprintf(stderr, "\rzorcc: %d frames", done);
        }
        std::fflush(stderr);
        shown_ = true;
    }
    ~Progress() {
        if (shown_) std::fprintf(stderr, "\n");
    }

private:
    bool on_;
    int total_;
    bool shown_ = false;
};

}  // namespace

int runConvert(const ConvertArgs& a) {
    const std::vector<const Op*> chain = parseChain(a.ops);
    {
        namespace fs = std::filesystem;
        std::error_code ec;
        if (fs::exists(a.out, ec) && fs::equivalent(a.in, a.out, ec))
            throw std::runtime_error("the output " + a.out + " is the input file");
    }
    RawDescription raw;
    if (!a.size.empty()) parseSize(a.size, raw.width, raw.height);
    raw.format = a.format;
    auto reader = openReader(a.in, raw);
    int total = reader->frameCount();
    if (a.frame >= 0) total = 1;
    else if (a.frames > 0 && (total == 0 || a.frames < total)) total = a.frames;
    auto writer = openWriter(a.out, reader->frameRate());

    Progress progress(!a.quiet && total != 1, total);
    int index = 0, written = 0;
    Data frame;
    while (reader->next(frame)) {
        const int i = index++;
        if (a.frame >= 0 && i != a.frame) continue;
        for (const Op* op : chain) {
            if ((op->inKinds & static_cast<int>(frame.kind)) == 0)
                throw std::runtime_error("op '" + op->name + "' takes " + kindsText(op->inKinds) + " input, not a " +
                                         kindName(frame.kind) +
                                         (op->inKinds & static_cast<int>(Kind::Yuv)
                                              ? " (raw .yuv with --size and --format, or .y4m)"
                                              : ""));
            frame = op->run(frame, a.options);
        }
        writer->write(frame);
        progress.update(++written);
        if (a.frame >= 0 || (a.frames > 0 && written == a.frames)) break;
    }
    if (written == 0)
        throw std::runtime_error(a.frame >= 0 ? a.in + " has no frame " + std::to_string(a.frame) + " (it has " +
                                                    std::to_string(index) + ")"
                                              : a.in + " holds no frame");
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
