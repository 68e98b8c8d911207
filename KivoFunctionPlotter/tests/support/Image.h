// Pictures: read back from a plotter, compared, kept as files.
#pragma once

#include "KivoFunctionPlotter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace KivoDrawingTools {

/// Red, green, blue, alpha bytes, top row first.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> rgba;

    Image() = default;
    Image(int imageWidth, int imageHeight);

    unsigned char* Pixel(int x, int y);
    const unsigned char* Pixel(int x, int y) const; ///< as above
    /// Whether each of red, green and blue is within the limit of the colour's.
    bool IsNear(int x, int y, const int (&rgb)[3], int limit = 1) const;
    /// Number of pixels for which the condition holds.
    int Count(const std::function<bool(const unsigned char*)>& condition) const;
};

bool IsWhite(const unsigned char* rgb);
/// Whether something was drawn on white.
bool IsInk(const unsigned char* rgb);
int CountInk(const Image& image); ///< the number of such pixels

/// One frame at the window's size; an empty image and a test failure where that fails.
Image CaptureImage(CKivoFunctionPlotter& plotter);
/// One frame at a size of its own.
Image CaptureImage(CKivoFunctionPlotter& plotter, int width, int height);
/// What lies in a buffer (GL_BACK or GL_FRONT) of the current context's window.
Image ReadBuffer(unsigned int buffer, int width, int height);

/// Differences of all red, green and blue bytes of two images of one size.
struct ImageDifference {
    int max = 0;
    double mean = 0.0;
};
ImageDifference Compare(const Image& a, const Image& b);

/// Fails where sizes differ, where any byte differs by more than maxLimit or all by more than meanLimit on
/// average. Actual, expected and difference are then written as <name>-actual.pam and so on into the
/// run's own folder (TestOutput.h).
testing::AssertionResult ImagesAgree(const Image& actual, const Image& expected, int maxLimit,
                                     double meanLimit, const std::string& name);

// Portable arbitrary maps (P7), RGB_ALPHA, 8 bits a sample.
bool WritePam(const Image& image, const std::string& path);
bool ReadPam(const std::string& path, Image& image);

} // namespace KivoDrawingTools
