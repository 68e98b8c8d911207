// Draws the sample terrain for README.md and docs/gallery.md: turned, from above, with inverted axes, in the
// flat plots, with contours on all walls, with a long title and in a narrow window. `terrain_gallery
// TERRAIN.asc FOLDER` needs no display.
#include "GridReader.h"
#include "PictureFile.h"

#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoStyle.h>
#include <KivoWindow.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// A plot of the terrain; derived, because fixed views are for derived classes.
class TerrainPlot : public CKivoFunctionPlotter {
public:
    explicit TerrainPlot(const KivoViewer::GridData& grid) {
        for (std::size_t r = 0; r < grid.RowCount(); ++r)
            for (std::size_t c = 0; c < grid.ColumnCount(); ++c)
                m_terrain.insert(m_terrain.end(), {grid.x[c], grid.y[r], grid.z[r * grid.ColumnCount() + c]});
        m_columns = static_cast<unsigned int>(grid.ColumnCount());
        m_rows = static_cast<unsigned int>(grid.RowCount());
    }

    void Load() {
        SetDataReference(m_terrain.data(), m_columns, m_rows, 1, m_columns, 3);
        SetFrameLineStep(3, 3);
        SetPlotTitle("Cumberland Mountains");
        SetXAxisTitle("Easting (km)");
        SetYAxisTitle("Northing (km)");
        SetZAxisTitle("Elevation (m)");
    }

    void ShowFromAbove() {
        BeginGLOperation();
        ApplyTopView();
        EndGLOperation();
    }

    void ShowContours() {
        ShowXIsoContours(true);
        ShowYIsoContours(true);
        ShowZIsoContours(true);
    }

    void ShowOverItsContours() {
        SKivoStyle style = GetStyle(*this);
        style.pixelScale = 1.25f;
        style.textFace = "DejaVu Sans";
        style.boldText = false;
        SetStyle(*this, style);
        SetBackgroundColor(1.0f, 1.0f, 1.0f, 1.0f);
        ShowZIsoContours(true);
        SetIsoContourCount(12);
        SetFrameLineStep(2, 2);
        SetFrameLineColor(0x00404040);
        SetXAxisMin(0.0f), SetXAxisMax(30.0f), SetXAxisTickMarkNumber(7), SetXAxisFloatingPointPrecision(0);
        SetYAxisMin(0.0f), SetYAxisMax(25.0f), SetYAxisTickMarkNumber(6), SetYAxisFloatingPointPrecision(0);
        SetZAxisMin(-500.0f), SetZAxisMax(1500.0f), SetZAxisTickMarkNumber(5);
        SetGradientColorRuleFloatingPointPrecision(0);
        AutoAdjustAxisLengthRatio();
        Rotate({0, 0}, {40, 12});
        Zoom(0.86f);
        Translate({0, 0}, {-25, -35});
    }

    // The frame lines are the host's to colour.
    void ShowOn(unsigned long ground, unsigned long ink, unsigned long frameLines) {
        SKivoStyle style = GetStyle(*this);
        style.inkColor = ink;
        SetStyle(*this, style);
        SetBackgroundColor(ground);
        SetFrameLineColor(frameLines);
        ShowZIsoContours(true);
    }

private:
    std::vector<float> m_terrain;
    unsigned int m_columns = 0;
    unsigned int m_rows = 0;
};

struct Picture {
    const char* name;
    std::function<void(TerrainPlot&)> prepare;
    int width = 640;
    int height = 480;
    int smoothing = 2;
};

// A drag across the plot, in pixels.
std::function<void(TerrainPlot&)> Turned(int dx, int dy) {
    return [=](TerrainPlot& plot) { plot.Rotate({0, 0}, {dx, dy}); };
}

const std::vector<Picture> pictures = {
    {"terrain", [](TerrainPlot& plot) { plot.ShowOverItsContours(); }, 1000, 700, 3},
    {"start", [](TerrainPlot&) {}},
    {"turned-left", Turned(-220, -50)},
    {"turned-right", Turned(320, 50)},
    {"from-below", Turned(60, -300)},
    {"top", [](TerrainPlot& plot) { plot.ShowFromAbove(); }},
    {"inverse-x", [](TerrainPlot& plot) { plot.SetInverseXAxis(true); }},
    {"inverse-y", [](TerrainPlot& plot) { plot.SetInverseYAxis(true); }},
    {"inverse-z", [](TerrainPlot& plot) { plot.SetInverseZAxis(true); }},
    {"xy", [](TerrainPlot& plot) { plot.SwitchToXYProjectPlot(); }},
    {"yz", [](TerrainPlot& plot) { plot.SwitchToYZProjectPlot(); }},
    {"xz", [](TerrainPlot& plot) { plot.SwitchToZXProjectPlot(); }},
    {"contours", [](TerrainPlot& plot) { plot.ShowContours(); }},
    {"on-white", [](TerrainPlot& plot) { plot.ShowOn(0x00FFFFFF, 0x00000000, 0x00000000); }},
    {"on-cream", [](TerrainPlot& plot) { plot.ShowOn(0x00DCEEFA, 0x00203040, 0x00203040); }},
    {"on-grey", [](TerrainPlot& plot) { plot.ShowOn(0x00302C2A, 0x00F0F0F0, 0x00302C2A); }},
    {"on-black", [](TerrainPlot& plot) { plot.ShowOn(0x00000000, 0x00D8F0FF, 0x00000000); }},
    {"long-title",
     [](TerrainPlot& plot) {
         plot.SetPlotTitle(
             "カンバーランド山地の標高モデル：東西およそ三十キロメートル、南北およそ二十五キロメートル、"
             "格子間隔二百五十メートル");
     }},
    {"narrow", [](TerrainPlot&) {}, 360, 480},
};

int Draw(const KivoViewer::GridData& grid, const Picture& picture, const std::string& folder) {
    const HWND window = CreateOffscreenWindow(picture.width, picture.height);
    TerrainPlot plot(grid);
    if (plot.OnCreate(window, picture.width, picture.height, false) != 0) {
        std::fprintf(stderr, "terrain_gallery: %s\n", LastWindowError());
        return 1;
    }
    plot.Load();
    picture.prepare(plot);
    SKivoPictureOptions options;
    options.smoothing = picture.smoothing;
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    CapturePicture(plot, options, rgba, width, height);
    plot.OnDestroy();
    ReleaseWindow(window);
    KivoViewer::WritePictureFile(folder + "/" + picture.name + ".png", rgba, {width, height});
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: terrain_gallery TERRAIN.asc FOLDER\n");
        return 2;
    }
    try {
        const KivoViewer::GridData grid = KivoViewer::ReadGridFile(argv[1]);
        for (const Picture& picture : pictures)
            if (Draw(grid, picture, argv[2]) != 0) return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "terrain_gallery: %s\n", error.what());
        return 1;
    }
    return 0;
}
