// kivo-compare-pictures EXPECTED ACTUAL DIFFERENCE.pam: whether two platforms drew the same picture, as .pam
// or .png. Rasterisers round edges differently, so single pixels may differ by much and the whole hardly at
// all.
#include "support/Image.h"
#if defined(KIVO_HAS_PNG)
#include "support/PngImage.h"
#endif

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace KivoDrawingTools;

namespace {

constexpr double meanLimit = 0.5;         // of 255, over all channels
constexpr int noticeable = 24;            // of 255, in any channel of a pixel
constexpr double noticeableShare = 0.005; // of all pixels

bool Read(const std::string& path, Image& image) {
#if defined(KIVO_HAS_PNG)
    if (path.size() > 4 && path.compare(path.size() - 4, 4, ".png") == 0) {
        image = KivoTest::ReadPng(path);
        return image.width > 0;
    }
#endif
    return ReadPam(path, image);
}

} // namespace

int main(int argc, char** argv) {
    Image expected, actual;
    if (argc != 4 || !Read(argv[1], expected) || !Read(argv[2], actual)) {
        std::fprintf(stderr, "usage: kivo-compare-pictures EXPECTED ACTUAL DIFFERENCE.pam\n");
        return 2;
    }
    if (expected.width != actual.width || expected.height != actual.height) {
        std::fprintf(stderr, "%s: %d x %d, expected %d x %d\n", argv[2], actual.width, actual.height,
                     expected.width, expected.height);
        return 1;
    }
    const ImageDifference total = Compare(expected, actual);
    Image difference(expected.width, expected.height);
    int noticed = 0;
    for (int y = 0; y < expected.height; ++y)
        for (int x = 0; x < expected.width; ++x) {
            int largest = 0;
            for (int i = 0; i < 3; ++i) {
                const int channel = std::abs(expected.Pixel(x, y)[i] - actual.Pixel(x, y)[i]);
                difference.Pixel(x, y)[i] = static_cast<unsigned char>(channel);
                largest = std::max(largest, channel);
            }
            difference.Pixel(x, y)[3] = 255;
            if (largest > noticeable) ++noticed;
        }
    const double share =
        static_cast<double>(noticed) / (static_cast<double>(expected.width) * expected.height);
    std::printf("%s: mean difference %.4f, largest %d, %d pixels (%.3f %%) beyond %d\n", argv[2], total.mean,
                total.max, noticed, 100.0 * share, noticeable);
    if (total.mean <= meanLimit && share <= noticeableShare) return 0;
    WritePam(difference, argv[3]);
    std::fprintf(stderr, "limits: mean %.4f, %.3f %% of the pixels; the difference is in %s\n", meanLimit,
                 100.0 * noticeableShare, argv[3]);
    return 1;
}
