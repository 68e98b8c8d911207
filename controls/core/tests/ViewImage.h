// What a view shows, as tests compare it.
#pragma once

#include "KivoPlotView.h"
#include "support/Image.h"

#include <algorithm>

namespace KivoTest {

/// A copy of a frame's pixels.
inline KivoDrawingTools::Image ImageOf(const KivoDrawingTools::SKivoPlotImage& shown) {
    KivoDrawingTools::Image image(shown.width, shown.height);
    for (int y = 0; y < shown.height; ++y)
        for (int x = 0; x < shown.width; ++x) {
            const unsigned char* const bgra = shown.pixels + y * shown.rowBytes + 4 * x;
            const unsigned char rgba[] = {bgra[2], bgra[1], bgra[0], bgra[3]};
            std::copy(rgba, rgba + 4, image.Pixel(x, y));
        }
    return image;
}

} // namespace KivoTest
