#include "RecordedPlot.h"

#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "TestSurfaces.h"

#include <algorithm>
#include <stdexcept>

namespace KivoTest {

using namespace KivoDrawingTools;

RecordedPlot::RecordedPlot() {
    if (plotter.OnCreate(window.Handle(), width, height, true) != 0)
        throw std::runtime_error(std::string("no plotter: ") + LastWindowError());
}

void RecordedPlot::Fill() {
    const TestSurface surface = HillSurface(12, 10);
    plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
    plotter.SetPlotTitle("Title");
    plotter.SetXAxisTitle("X");
    plotter.SetYAxisTitle("Y");
    plotter.SetZAxisTitle("Z");
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    float curve[] = {-2, -1, 1, 0, 0, 1.5f, 3, 1, 1};
    plotter.AddCurveData(curve, 3, 3);
    plotter.SetCurveWidth(plotter.AddCurveData(curve, 2, 3), 2.5f);
    plotter.AddMeasurePoints(2, 3, measured, "First");
    plotter.AddMeasurePoints(1, 3, measured, "Second");
    const float traced[] = {1.0f, 0.5f, 0.25f};
    std::copy(traced, traced + 3, plotter.m_tracePoint);
    plotter.m_hasTracePoint = 1;
}

void NameFields(CallRecorder& recorder, const CallProbe& plotter) {
    const auto name = [&](const void* address, const char* words) {
        if (address) recorder.Name(address, words);
    };
    name(plotter.m_hWnd, "window");
    name(plotter.m_hDC, "dc");
    name(plotter.m_hGLRC, "context");
    if (plotter.m_textRenderer) {
        name(plotter.m_textRenderer->m_memoryDC, "memory dc");
        name(plotter.m_textRenderer->m_font, "text font");
        name(plotter.m_textRenderer->m_savedFont, "saved font");
    }
    name(plotter.m_points, "points");
    name(plotter.m_colorArray, "colors");
    name(plotter.m_texcoordArray, "texcoords");
    name(plotter.m_indexArray, "indices");
    name(plotter.m_framelineIndexArray, "frame lines");
    name(plotter.m_framelineTexels, "frame-line texels");
    if (plotter.m_plotTitleImage) name(plotter.m_plotTitleImage->pixels, "title pixels");
}

void Append(Texts& texts, const Texts& more) {
    texts.insert(texts.end(), more.begin(), more.end());
}

Texts WithImagesInOneLine(const Texts& texts) {
    Texts lines;
    const auto argument = [](const std::string& text, std::size_t index) {
        std::size_t start = text.find('(') + 1;
        for (; index > 0; --index)
            start = text.find(", ", start) + 2;
        return text.substr(start, text.find_first_of(",)", start) - start);
    };
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] != "glGenTextures(1)") {
            lines.push_back(texts[i]);
            continue;
        }
        std::string words, texture;
        for (; i < texts.size() && texts[i] != "glBindTexture(GL_TEXTURE_2D, 0)"; ++i) {
            if (words.empty() && texts[i].rfind("GetTextExtentPoint32A", 0) == 0)
                words = texts[i].substr(texts[i].find('"'), texts[i].rfind('"') + 1 - texts[i].find('"'));
            if (texts[i].rfind("glBindTexture", 0) == 0) texture = argument(texts[i], 1);
        }
        lines.push_back("image " + words + " as texture " + texture);
    }
    return lines;
}

Texts NamesOf(const Texts& texts) {
    Texts names;
    for (const std::string& text : texts)
        names.push_back(text.substr(0, text.find('(')));
    return names;
}

} // namespace KivoTest
