// A picture of docs/features.md and the code that makes it.
#pragma once

#include <KivoFunctionPlotter.h>

#include <memory>
#include <vector>

/// A picture as bytes red, green, blue, alpha, top row first.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> rgba;
};

/// One picture: what is done to a plot of the cooling plate before it is captured.
struct FeaturePicture {
    using Plotter = KivoDrawingTools::CKivoFunctionPlotter;

    const char* name;
    void (*prepare)(Plotter& plotter);
    /// Null: the class itself.
    std::unique_ptr<Plotter> (*make)() = nullptr;
    /// Null: one smooth frame at the window's size.
    Pixels (*capture)(Plotter& plotter) = nullptr;
};

/// Hands the cooling plate and its titles to a plot.
void LoadPlate(KivoDrawingTools::CKivoFunctionPlotter& plotter);
/// Adds two groups of measure points on the plate.
void MeasurePoints(KivoDrawingTools::CKivoFunctionPlotter& plotter);

extern const std::vector<FeaturePicture> surfacePictures;
extern const std::vector<FeaturePicture> axisPictures;
extern const std::vector<FeaturePicture> layerPictures;
extern const std::vector<FeaturePicture> overlayPictures;
extern const std::vector<FeaturePicture> viewPictures;
extern const std::vector<FeaturePicture> motionPictures;
extern const std::vector<FeaturePicture> derivedPictures;
