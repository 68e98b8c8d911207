// CKivoFunctionPlotter: titles, text and axis settings.
#include "KivoFunctionPlotter.h"

#include "drawing/GLScopes.h"
#include "drawing/LongDraws.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "window_system/WindowSystem.h"

#include <cstdlib>
#include <cstring>

namespace KivoDrawingTools {

// ---- Titles ---------------------------------------------------------------------------------------------

const char* CKivoFunctionPlotter::GetPlotTitle() const {
    return m_plotTitle.c_str();
}

const char* CKivoFunctionPlotter::GetXAxisTitle() const {
    return m_xAxisTitle.c_str();
}

const char* CKivoFunctionPlotter::GetYAxisTitle() const {
    return m_yAxisTitle.c_str();
}

const char* CKivoFunctionPlotter::GetZAxisTitle() const {
    return m_zAxisTitle.c_str();
}

// A copy of the text is made first: it may be the pointer that the title's getter returned.
void CKivoFunctionPlotter::SetPlotTitle(const char* title) {
    std::string text = title;
    if (m_plotTitleImage) {
        const ContextScope context(m_hDC, m_hGLRC);
        CreateTextImage(m_textRenderer, text.c_str(), m_plotTitleImage);
    }
    m_plotTitle.swap(text);
}

void CKivoFunctionPlotter::SetAxisTitle(int axis, const char* title, std::string& stored) {
    std::string text = title;
    if (m_gridBox && m_gridBox->m_textMaker) {
        const ContextScope context(m_hDC, m_hGLRC);
        CreateTextImage(m_gridBox->m_textMaker, text.c_str(), &m_gridBox->m_axisTitleImage[axis]);
    }
    stored.swap(text);
}

void CKivoFunctionPlotter::SetXAxisTitle(const char* title) {
    SetAxisTitle(0, title, m_xAxisTitle);
}

void CKivoFunctionPlotter::SetYAxisTitle(const char* title) {
    SetAxisTitle(1, title, m_yAxisTitle);
}

void CKivoFunctionPlotter::SetZAxisTitle(const char* title) {
    SetAxisTitle(2, title, m_zAxisTitle);
}

// ---- Text images ----------------------------------------------------------------------------------------

int CKivoFunctionPlotter::CreateTextImage(STextRenderer* renderer, const char* text, SKivoTexImage* image) {
    return KivoDrawingTools::CreateTextImage(renderer, text, image);
}

void CKivoFunctionPlotter::RenderTextTex(const float* p0, const float* p1, const float* p2, const float* p3,
                                         const SKivoTexImage* image) {
    if (!image || image->texture == 0 || !image->pixels) return;
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);
    glDisable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, image->texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    // The exact size instead of the padded one, which is why the texture coordinates run to 1 here.
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, image->width, image->height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 image->pixels);

    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3fv(p0);
    glTexCoord2f(1.0f, 0.0f);
    glVertex3fv(p1);
    glTexCoord2f(1.0f, 1.0f);
    glVertex3fv(p2);
    glTexCoord2f(0.0f, 1.0f);
    glVertex3fv(p3);
    glEnd();

    glEnable(GL_LIGHTING);
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void CKivoFunctionPlotter::RenderPlotName() {
    if (!m_plotTitleImage) return;
    const double worldHeight = (m_viewTop - m_viewBottom) * m_plotTitleImage->height / m_plotViewport[3];
    const double worldWidth = (m_viewRight - m_viewLeft) * m_plotTitleImage->width / m_plotViewport[2];
    const float top = static_cast<float>(m_viewTop);
    const float bottom = static_cast<float>(m_viewTop - worldHeight);
    // Centred, the columns of an odd title would lie between those of an even plot, and the other way round:
    // half a pixel to the left they lie on them.
    const bool isBetween = m_plotTitleImage->width % 2 != std::abs(m_plotViewport[2] % 2);
    const double shift = isBetween ? 0.5 * (m_viewRight - m_viewLeft) / m_plotViewport[2] : 0.0;
    const float left = static_cast<float>(-worldWidth * 0.5 - shift);
    const float right = static_cast<float>(worldWidth * 0.5 - shift);
    // At depth 1; of data with small values the view volume ends before that.
    const float depth = m_viewFar < 1.0 ? static_cast<float>(m_viewFar * 0.5) : 1.0f;
    const float p0[] = {left, bottom, depth};
    const float p1[] = {right, bottom, depth};
    const float p2[] = {right, top, depth};
    const float p3[] = {left, top, depth};

    const MatrixModeScope modelView(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    RenderTextTex(p0, p1, p2, p3, m_plotTitleImage);
    glPopMatrix();
}

// ---- Bitmap text ----------------------------------------------------------------------------------------

void CKivoFunctionPlotter::CallFontLists(const char* text, std::size_t count) {
    glPushAttrib(GL_LIST_BIT);
    glListBase(m_fontListBase);
    CallLists(text, count);
    glPopAttrib();
}

void CKivoFunctionPlotter::Render3DText(float x, float y, float z, const char* text, std::size_t count) {
    const MatrixModeScope modelView(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glTranslated(m_volumeTranslate[0], m_volumeTranslate[1], m_volumeTranslate[2]);
    glMultMatrixd(m_rotationMatrix);
    glTranslatef(x, y, z);
    CallFontLists(text, count);
    glPopMatrix();
}

void CKivoFunctionPlotter::RenderText(float x, float y, float z, const char* text, std::size_t count) {
    glRasterPos3f(x, y, z);
    CallFontLists(text, count);
}

void CKivoFunctionPlotter::RenderText(float x, float y, float z, const char* text) {
    RenderText(x, y, z, text, std::strlen(text));
}

void CKivoFunctionPlotter::RenderFarText(float x, float y, const char* text, std::size_t count) {
    RenderText(x, y, 0.99f, text, count);
}

void CKivoFunctionPlotter::RenderFarText(float x, float y, const char* text) {
    RenderFarText(x, y, text, std::strlen(text));
}

void CKivoFunctionPlotter::RenderNearText(float x, float y, const char* text, std::size_t count) {
    RenderText(x, y, 0.0f, text, count);
}

void CKivoFunctionPlotter::RenderNearText(float x, float y, const char* text) {
    RenderNearText(x, y, text, std::strlen(text));
}

// ---- Axis settings --------------------------------------------------------------------------------------

float CKivoFunctionPlotter::GetXAxisMin() const {
    return m_gridBox ? m_gridBox->m_axisMin[0] : 0.0f;
}

float CKivoFunctionPlotter::GetYAxisMin() const {
    return m_gridBox ? m_gridBox->m_axisMin[1] : 0.0f;
}

float CKivoFunctionPlotter::GetZAxisMin() const {
    return m_gridBox ? m_gridBox->m_axisMin[2] : 0.0f;
}

float CKivoFunctionPlotter::GetXAxisMax() const {
    return m_gridBox ? m_gridBox->m_axisMax[0] : 0.0f;
}

float CKivoFunctionPlotter::GetYAxisMax() const {
    return m_gridBox ? m_gridBox->m_axisMax[1] : 0.0f;
}

float CKivoFunctionPlotter::GetZAxisMax() const {
    return m_gridBox ? m_gridBox->m_axisMax[2] : 0.0f;
}

template <typename Change>
int CKivoFunctionPlotter::ChangeGridBox(Change change) {
    const ContextScope context(m_hDC, m_hGLRC);
    if (m_gridBox) change(*m_gridBox);
    return 0;
}

int CKivoFunctionPlotter::SetXAxisMin(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMin(0, value); });
}

int CKivoFunctionPlotter::SetYAxisMin(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMin(1, value); });
}

int CKivoFunctionPlotter::SetZAxisMin(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMin(2, value); });
}

int CKivoFunctionPlotter::SetXAxisMax(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMax(0, value); });
}

int CKivoFunctionPlotter::SetYAxisMax(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMax(1, value); });
}

int CKivoFunctionPlotter::SetZAxisMax(float value) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetAxisMax(2, value); });
}

unsigned int CKivoFunctionPlotter::GetXAxisTickMarkNumber() const {
    return m_gridBox ? m_gridBox->m_tickIntervals[0] + 1 : 0;
}

unsigned int CKivoFunctionPlotter::GetYAxisTickMarkNumber() const {
    return m_gridBox ? m_gridBox->m_tickIntervals[1] + 1 : 0;
}

unsigned int CKivoFunctionPlotter::GetZAxisTickMarkNumber() const {
    return m_gridBox ? m_gridBox->m_tickIntervals[2] + 1 : 0;
}

int CKivoFunctionPlotter::SetXAxisTickMarkNumber(unsigned int count) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetTickMarkNumber(0, count); });
}

int CKivoFunctionPlotter::SetYAxisTickMarkNumber(unsigned int count) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetTickMarkNumber(1, count); });
}

int CKivoFunctionPlotter::SetZAxisTickMarkNumber(unsigned int count) {
    return ChangeGridBox([=](CKivoGridBox& box) { box.SetTickMarkNumber(2, count); });
}

unsigned int CKivoFunctionPlotter::GetXAxisFloatingPointPrecision() const {
    return m_gridBox ? m_gridBox->m_precision[0] : 0;
}

unsigned int CKivoFunctionPlotter::GetYAxisFloatingPointPrecision() const {
    return m_gridBox ? m_gridBox->m_precision[1] : 0;
}

unsigned int CKivoFunctionPlotter::GetZAxisFloatingPointPrecision() const {
    return m_gridBox ? m_gridBox->m_precision[2] : 0;
}

int CKivoFunctionPlotter::SetAxisPrecision(int axis, unsigned int precision) {
    return ChangeGridBox([=](CKivoGridBox& box) {
        box.m_precision[axis] = precision;
        box.BuildTickLabels(axis);
    });
}

int CKivoFunctionPlotter::SetXAxisFloatingPointPrecision(unsigned int precision) {
    return SetAxisPrecision(0, precision);
}

int CKivoFunctionPlotter::SetYAxisFloatingPointPrecision(unsigned int precision) {
    return SetAxisPrecision(1, precision);
}

int CKivoFunctionPlotter::SetZAxisFloatingPointPrecision(unsigned int precision) {
    return SetAxisPrecision(2, precision);
}

} // namespace KivoDrawingTools
