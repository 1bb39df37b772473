// Helpers of the zorcc tool tests: a scratch folder per test, fixtures
// written with the tool's own file layer, and running the zorcc binary.
#pragma once

#include "image_io.h"
#include "yuv_io.h"
#include "zorcc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace tt {

using zorcc_tool::Image16;
using zorcc_tool::Image8;
using zorcc_tool::Picture;

namespace fs = std::filesystem;

// A fresh folder for the running test, inside the build tree.
inline fs::path scratch() {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    fs::path dir = fs::path(ZORCC_TEST_DIR) / (std::string(info->test_suite_name()) + "." + info->name());
    fs::remove_all(dir);
    fs::create_directories(dir);
    return dir;
}

struct Result {
    int code = 0;
    std::string err;  // standard error
    std::string out;  // standard output
};

inline std::string slurpText(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Runs `zorcc ARGS` with the working folder `dir`; `prefix` goes before it
// on the shell's command line (a pipe into it, a ulimit).
inline Result zorcc(const fs::path& dir, const std::string& args, const std::string& prefix = "") {
    const fs::path err = dir / "stderr.txt", out = dir / "stdout.txt";
    const std::string cmd = "cd '" + dir.string() + "' && " + prefix + " '" + std::string(ZORCC_EXE) + "' " + args +
                            " >'" + out.string() + "' 2>'" + err.string() + "'";
    const int st = std::system(cmd.c_str());
    Result r;
    r.code = WIFEXITED(st) ? WEXITSTATUS(st) : 128 + WTERMSIG(st);
    r.err = slurpText(err);
    r.out = slurpText(out);
    fs::remove(err);
    fs::remove(out);
    return r;
}

inline void ok(const Result& r) { ASSERT_EQ(r.code, 0) << r.err; }

inline std::vector<std::uint8_t> slurp(const fs::path& p) {
    const std::string s = slurpText(p);
    return {s.begin(), s.end()};
}

inline void spit(const fs::path& p, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(p, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

template <typename T>
zorcc_tool::Raster<T> randomImage(int w, int h, int c, std::uint32_t seed) {
    zorcc_tool::Raster<T> img(w, h, c);
    std::mt19937 rng(seed);
    for (T& v : img.pixels) v = static_cast<T>(rng());
    return img;
}

// A random frame of a YUV layout, its planes concatenated as in a raw file.
inline zorcc_tool::YuvFrame randomFrame(zorcc_tool::YuvFormat f, int w, int h, std::uint32_t seed) {
    zorcc_tool::YuvFrame fr(f, w, h);
    std::mt19937 rng(seed);
    for (auto& p : fr.planes)
        for (auto& v : p) v = static_cast<std::uint8_t>(rng());
    return fr;
}

inline std::vector<std::uint8_t> rawOf(const zorcc_tool::YuvFrame& f) {
    std::vector<std::uint8_t> v;
    for (const auto& p : f.planes) v.insert(v.end(), p.begin(), p.end());
    return v;
}

// A Y4M stream: the header's tags after W and H, then each frame's bytes.
inline std::vector<std::uint8_t> y4mBytes(int w, int h, const std::string& tags,
                                          const std::vector<std::vector<std::uint8_t>>& frames) {
    const std::string head = "YUV4MPEG2 W" + std::to_string(w) + " H" + std::to_string(h) + " " + tags + "\n";
    std::vector<std::uint8_t> v(head.begin(), head.end());
    for (const auto& f : frames) {
        const std::string fh = "FRAME\n";
        v.insert(v.end(), fh.begin(), fh.end());
        v.insert(v.end(), f.begin(), f.end());
    }
    return v;
}

inline std::vector<std::uint8_t> y4mOf(const std::vector<zorcc_tool::YuvFrame>& frames, const char* tag) {
    std::vector<std::vector<std::uint8_t>> raw;
    for (const auto& f : frames) raw.push_back(rawOf(f));
    return y4mBytes(frames[0].width, frames[0].height, std::string("F30000:1001 Ip A1:1 C") + tag + " XYSCSS=420JPEG", raw);
}

// R and B exchanged (RGB <-> BGR).
inline Image8 swapped(Image8 img) {
    for (std::size_t i = 0; i + 2 < img.pixels.size(); i += 3) std::swap(img.pixels[i], img.pixels[i + 2]);
    return img;
}

inline std::vector<std::uint16_t> words(const std::vector<std::uint8_t>& le) {
    std::vector<std::uint16_t> w(le.size() / 2);
    for (std::size_t i = 0; i < w.size(); ++i) w[i] = static_cast<std::uint16_t>(le[2 * i] | le[2 * i + 1] << 8);
    return w;
}

// Files of a folder (names only), for checks that nothing was left behind.
inline std::vector<std::string> listing(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir)) names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Runs a failing conversion: a non-zero exit, one line on standard error
// that names the problem, and the folder as it was (no output, no
// temporary).
inline void fails(const fs::path& d, const std::string& args, const std::string& needle, const char* output = "out.png") {
    const auto before = listing(d);
    const Result r = zorcc(d, args);
    EXPECT_NE(r.code, 0) << args;
    EXPECT_LT(r.code, 128) << "killed: " << r.err;
    ASSERT_FALSE(r.err.empty()) << args;
    EXPECT_EQ(r.err.find('\n'), r.err.size() - 1) << r.err;
    EXPECT_EQ(r.err.rfind("zorcc: ", 0), 0u) << r.err;
    EXPECT_NE(r.err.find(needle), std::string::npos) << "'" << needle << "' not in: " << r.err;
    EXPECT_FALSE(fs::exists(fs::symlink_status(d / output))) << args;
    EXPECT_EQ(listing(d), before) << args;
}

}  // namespace tt
