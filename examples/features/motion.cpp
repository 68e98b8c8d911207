// Feature pictures of a plot that is moved.
#include "FeaturePicture.h"

#include <KivoMotion.h>

#include <GL/gl.h>

#include <cstddef>

using namespace KivoDrawingTools;

namespace {

void Drag(CKivoFunctionPlotter& plotter) {
    // [docs: motion]
    SetMotionDetail(plotter, 15); // so few that it is seen: try 150
    plotter.OnRButtonDown(MK_RBUTTON, {100, 100});
    plotter.OnMouseMove(MK_RBUTTON, {160, 125}); // draws a frame
    // [docs: end]
}

void Rest(CKivoFunctionPlotter& plotter) {
    Drag(plotter);
    // [docs: rest]
    plotter.OnRButtonUp(0, {160, 125});
    if (IsDetailReduced(plotter)) plotter.OnDraw(); // by a timer, a moment after the last move or wheel step
    // [docs: end]
}

// Knows what its window shows; off-screen that stays in the buffer.
class ShownPlotter : public CKivoFunctionPlotter {
public:
    void Read(std::vector<unsigned char>& rgba, int width, int height) {
        rgba.resize(static_cast<std::size_t>(width) * height * 4);
        BeginGLOperation();
        glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        EndGLOperation();
    }
};

Pixels Shown(CKivoFunctionPlotter& plotter) {
    Pixels picture = {640, 480, {}};
    std::vector<unsigned char> upsideDown;
    static_cast<ShownPlotter&>(plotter).Read(upsideDown, picture.width, picture.height);
    for (auto row = upsideDown.end(); row != upsideDown.begin(); row -= 4 * picture.width)
        picture.rgba.insert(picture.rgba.end(), row - 4 * picture.width, row);
    return picture;
}

std::unique_ptr<CKivoFunctionPlotter> Make() {
    return std::make_unique<ShownPlotter>();
}

} // namespace

const std::vector<FeaturePicture> motionPictures = {
    {"motion", Drag, Make, Shown},
    {"rest", Rest, Make, Shown},
};
