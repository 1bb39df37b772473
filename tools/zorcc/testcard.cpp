#include "testcard.h"

namespace zorcc_tool {

Image8 makeTestCard(int width, int height) {
    Image8 img(width, height, 3);
    // White, yellow, cyan, green, magenta, red, blue at 75%, and black.
    static const std::uint8_t bars[8][3] = {{191, 191, 191}, {191, 191, 0}, {0, 191, 191}, {0, 191, 0},
                                            {191, 0, 191},   {191, 0, 0},   {0, 0, 191},   {0, 0, 0}};
    static const std::uint8_t full[8][3] = {{255, 0, 0},   {0, 255, 0},     {0, 0, 255},     {255, 255, 0},
                                            {0, 255, 255}, {255, 0, 255},   {255, 255, 255}, {16, 16, 16}};
    const int barEnd = height / 2;
    const int fullEnd = barEnd + height / 8;
    const int rampRows = (height - fullEnd) / 5;
    for (int y = 0; y < height; ++y) {
        std::uint8_t* row = img.row(y);
        for (int x = 0; x < width; ++x) {
            std::uint8_t* p = row + 3 * x;
            const int v = static_cast<int>(static_cast<long long>(x) * 255 / (width > 1 ? width - 1 : 1));
            if (y < barEnd) {
                const std::uint8_t* c = bars[x * 8 / width];
                p[0] = c[0], p[1] = c[1], p[2] = c[2];
            } else if (y < fullEnd) {
                const std::uint8_t* c = full[x * 8 / width];
                p[0] = c[0], p[1] = c[1], p[2] = c[2];
            } else {
                const int band = (y - fullEnd) / (rampRows > 0 ? rampRows : 1);
                switch (band) {
                    case 0: p[0] = p[1] = p[2] = static_cast<std::uint8_t>(v); break;
                    case 1: p[0] = static_cast<std::uint8_t>(v), p[1] = p[2] = 0; break;
                    case 2: p[1] = static_cast<std::uint8_t>(v), p[0] = p[2] = 0; break;
                    case 3: p[2] = static_cast<std::uint8_t>(v), p[0] = p[1] = 0; break;
                    default: {
                        const bool on = ((x / 2) + (y / 2)) % 2 == 0;  // 2x2 checks
                        p[0] = p[1] = p[2] = on ? 235 : 20;
                    }
                }
            }
        }
    }
    return img;
}

}  // namespace zorcc_tool
