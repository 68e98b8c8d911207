#include "TexturedQuad.h"

#include "window_system/WindowSystem.h"

namespace KivoDrawingTools {

void DrawTexturedQuad(const float* center, const float* right, const float* up, double scaleRight,
                      double scaleUp, const SKivoTexImage& image) {
    if (image.texture == 0 || !image.pixels) return;
    const float width = static_cast<float>(image.width * scaleRight);
    const float height = static_cast<float>(image.height * scaleUp);
    float bottomLeft[3], bottomRight[3], topRight[3], topLeft[3];
    for (int i = 0; i < 3; ++i) {
        bottomLeft[i] = center[i] - right[i] * width * 0.5f - up[i] * height * 0.5f;
        bottomRight[i] = bottomLeft[i] + right[i] * width;
        topRight[i] = bottomRight[i] + up[i] * height;
        topLeft[i] = bottomLeft[i] + up[i] * height;
    }

    glPushAttrib(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);
    glDisable(GL_LIGHTING);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3fv(bottomLeft);
    glTexCoord2f(image.sMax, 0.0f);
    glVertex3fv(bottomRight);
    glTexCoord2f(image.sMax, image.tMax);
    glVertex3fv(topRight);
    glTexCoord2f(0.0f, image.tMax);
    glVertex3fv(topLeft);
    glEnd();
    glBindTexture(GL_TEXTURE_2D, 0);
    glPopAttrib();
}

} // namespace KivoDrawingTools
