// kivo-viewer-pictures: draws the pictures of docs/viewer.md, the real viewer on a display, into the folder
// that KIVO_TEST_OUTPUT names.
#include "support/PngImage.h"
#include "ViewerWindow.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace KivoTest;

namespace {

class GuidePictures : public ViewerWindow {
protected:
    void Begin(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--size", "640x480"});
        Start(arguments);
    }

    void KeepWindow(const std::string& name) {
        MoveBy(0, 0); // no button of the window is lit up
        Settled();
        KeepPng(Grab(AreaOf(m_window)), name);
    }

    const std::string data = KIVO_TEST_DATA "/";
};

TEST_F(GuidePictures, Window) {
    Begin({"--z-contours", "--z-min", "-400", "--z-max", "1200", "--z-ticks", "5"});
    KeepWindow("window");
}

TEST_F(GuidePictures, FlatPlot) {
    Begin({"--mode", "1", "--title", "Cumberland Mountains", "--fill-contours", "--label-contours",
           "--contour-interval", "100", "--colors", "terrain"});
    KeepWindow("flat-plot");
}

TEST_F(GuidePictures, PointsAndTrace) {
    Begin({data + "../../samples/terrain.asc", "--points", data + "wells.csv", "--curve", data + "flight.csv",
           "--point-size", "6"});
    Press('t');
    MoveBy(60, 30);
    Settled();
    KeepPng(Grab(AreaOf(m_window)), "points");
}

TEST_F(GuidePictures, Surfaces) {
    std::ofstream(Path("water.csv")) << ",0,12,30\n0,440,440,440\n25,440,440,440\n";
    Begin({data + "../../samples/terrain.asc", Path("water.csv"), "--title", "Terrain and water",
           "--surface-color", "values", "--surface-color", "3070c0", "--opacity", "1", "--opacity", "0.6",
           "--no-frame-lines", "--colors", "terrain", "--legend-title", "m", "--legend-numbers", "round"});
    KeepWindow("surfaces");
}

TEST_F(GuidePictures, Language) {
    Begin({"--z-contours", "--language", "ja"});
    KeepWindow("japanese");
}

TEST_F(GuidePictures, ReadAs) {
    std::ofstream(Path("survey.csv")) << "station;east;north;height;quality\n"
                                         "A 1;2600010,5;1200020,25;431,7;2\n"
                                         "A 2;2600042,0;1200031,50;433,1;1\n"
                                         "A 3;2600075,5;1200018,75;430,2;1\n"
                                         "B 1;2600021,0;1200066,00;436,9;3\n"
                                         "B 2;2600058,5;1200071,25;438,4;1\n";
    Begin({Path("survey.csv")});
    desktop->Key(controlKey, true);
    PressWith(shiftKey, 'o');
    desktop->Key(controlKey, false);
    KeepPng(Grab(AreaOf(WaitForDialog("Read as"))), "read-as");
}

TEST_F(GuidePictures, Keys) {
    Begin({});
    Press(f1Key);
    KeepPng(Grab(AreaOf(WaitForDialog("Keys and mouse"))), "keys");
}

} // namespace
