// The subcommands of the zorcc tool.
#pragma once

#include "ops.h"

#include <string>

namespace zorcc_tool {

struct ConvertArgs {
    std::string in, out;
    std::string ops;     // one op or a comma-separated chain
    std::string size;    // WxH of a raw input
    std::string format;  // layout of a raw input
    std::string inFormat, outFormat;  // png|pnm|y4m|raw, or by content and extension
    std::string inDither = "none";    // how Y4M samples of more than 8 bits become 8
    int frame = -1;      // only this frame (0-based)
    int frames = 0;      // at most this many frames (0: all)
    bool quiet = false;
    OpOptions options;
};

int runConvert(const ConvertArgs& a);
int runList(bool verbose);
int runDemo(const std::string& outDir);
int runBench(const std::string& size, int runs);

// "WxH" -> width and height; throws std::runtime_error.
void parseSize(const std::string& text, int& w, int& h);

}  // namespace zorcc_tool
