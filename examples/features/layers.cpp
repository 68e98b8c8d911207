// Feature pictures of other surfaces over the first one.
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoSurfaces.h>

using namespace KivoDrawingTools;
using namespace KivoSamples;

namespace {

void Layers(CKivoFunctionPlotter& plotter) {
    // [docs: layers]
    const std::vector<float> plate = PlatePoints(); // what the first surface shows
    std::vector<float> limit = plate;
    for (std::size_t i = 0; i < limit.size(); i += 3)
        limit[i + 2] = 55.0f - 0.1f * limit[i]; // °C: what each place may reach
    SKivoSurface looks;
    looks.isColoredByZ = false;
    looks.color = 0x00A06020; // 0x00BBGGRR
    looks.opacity = 0.45f;
    AddSurface(plotter, limit.data(), plateColumns, plateRows, 1, plateColumns, 3, looks);
    // [docs: end]
}

void SeeThrough(CKivoFunctionPlotter& plotter) {
    Layers(plotter);
    // [docs: see-through]
    SKivoSurface first;
    GetSurface(plotter, 0, &first);
    first.opacity = 0.4f;
    first.frameLineStep[0] = first.frameLineStep[1] = 5;
    SetSurface(plotter, 0, first);

    SKivoSurface other;
    GetSurface(plotter, 1, &other);
    other.opacity = 1.0f;
    SetSurface(plotter, 1, other);
    // [docs: end]
}

} // namespace

const std::vector<FeaturePicture> layerPictures = {
    {"layers", Layers},
    {"see-through", SeeThrough},
};
