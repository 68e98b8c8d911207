#include "KivoMeasurePointGroup.h"

#include "computing/ColorSpace.h"
#include "TextRenderer.h"

namespace KivoDrawingTools {

CKivoMeasurePointGroup::CKivoMeasurePointGroup(unsigned int pointCount, unsigned int floatsPerPoint,
                                               float* points, const float* palette, const char* name,
                                               STextRenderer* textMaker)
    : m_pointCount(pointCount), m_floatsPerPoint(floatsPerPoint), m_points(points), m_color(palette),
      m_name(name), m_textMaker(textMaker) {
    CreateTextImage(m_textMaker, m_name.c_str(), &m_nameImage);
}

CKivoMeasurePointGroup::~CKivoMeasurePointGroup() {
    if (!m_isReference) delete[] m_points;
    ReleaseTextImage(&m_nameImage);
    for (std::vector<SKivoTexImage>* const images : {&m_pointNameImages, &m_listedImages})
        for (SKivoTexImage& image : *images)
            ReleaseTextImage(&image);
}

void CKivoMeasurePointGroup::ForgetTextures() {
    m_nameImage.texture = 0;
    for (std::vector<SKivoTexImage>* const images : {&m_pointNameImages, &m_listedImages})
        for (SKivoTexImage& image : *images)
            image.texture = 0;
}

void CKivoMeasurePointGroup::SetName(const char* name) {
    std::string text = name;
    ReleaseTextImage(&m_nameImage);
    CreateTextImage(m_textMaker, text.c_str(), &m_nameImage);
    m_name.swap(text);
}

void CKivoMeasurePointGroup::SetColor(unsigned long color) {
    ColorToRgba(color, m_ownColor);
    m_color = m_ownColor;
}

} // namespace KivoDrawingTools
