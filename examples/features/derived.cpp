// Feature pictures of what only classes derived from the plotter can do.
#include "FeaturePicture.h"

#include <GL/gl.h>

using KivoDrawingTools::CKivoFunctionPlotter;

namespace {

// [docs: top-view]
class MapPlotter : public CKivoFunctionPlotter {
public:
    void ShowFromAbove() {
        BeginGLOperation();
        ApplyTopView();
        EndGLOperation();
    }
};
// [docs: end]

// [docs: lighting]
class EvenlyLitPlotter : public CKivoFunctionPlotter {
protected:
    int InitLighting() override { // called by OnCreate
        CKivoFunctionPlotter::InitLighting();
        const GLfloat even[] = {0.8f, 0.8f, 0.8f, 1.0f}; // OpenGL adds 0.2 of its own
        const GLfloat none[] = {0.0f, 0.0f, 0.0f, 1.0f};
        glLightfv(GL_LIGHT0, GL_AMBIENT, even);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, none);
        glLightfv(GL_LIGHT0, GL_SPECULAR, none);
        return 0;
    }
};
// [docs: end]

// [docs: group-legend]
class LegendPlotter : public CKivoFunctionPlotter {
public:
    // A frame with the legend of the measure groups over it, bottom row first.
    void Draw(std::vector<unsigned char>& rgba, int width, int height) {
        rgba.resize(static_cast<std::size_t>(width) * height * 4);
        BeginGLOperation();
        DrawScene();
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        RenderLegend();
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
        glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        EndGLOperation();
    }
};
// [docs: end]

void TopView(CKivoFunctionPlotter& plotter) {
    static_cast<MapPlotter&>(plotter).ShowFromAbove();
}

Pixels WithLegend(CKivoFunctionPlotter& plotter) {
    Pixels picture = {640, 480, {}};
    std::vector<unsigned char> upsideDown;
    static_cast<LegendPlotter&>(plotter).Draw(upsideDown, picture.width, picture.height);
    for (auto row = upsideDown.end(); row != upsideDown.begin(); row -= 4 * picture.width)
        picture.rgba.insert(picture.rgba.end(), row - 4 * picture.width, row);
    return picture;
}

void Unchanged(CKivoFunctionPlotter&) {}

template <typename Plotter>
std::unique_ptr<CKivoFunctionPlotter> Make() {
    return std::make_unique<Plotter>();
}

} // namespace

const std::vector<FeaturePicture> derivedPictures = {
    {"top-view", TopView, Make<MapPlotter>},
    {"lighting", Unchanged, Make<EvenlyLitPlotter>},
    {"group-legend", MeasurePoints, Make<LegendPlotter>, WithLegend},
};
