// Pictures of tests as PNG files.
#pragma once

#include "Image.h"

#include <string>

namespace KivoTest {

/// An empty image and a test failure where the file is none.
KivoDrawingTools::Image ReadPng(const std::string& path);

/// Dots per inch that the file records; 0 and a test failure where it records none.
int ReadPngResolution(const std::string& path);

/// Keeps a picture for a person to look at, as <name>.png in the run's own folder (TestOutput.h).
void KeepPng(const KivoDrawingTools::Image& image, const std::string& name);

} // namespace KivoTest
