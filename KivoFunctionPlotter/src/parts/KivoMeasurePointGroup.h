// A named, coloured set of measured points.
#pragma once

#include "KivoTypes.h"

#include <string>
#include <vector>

namespace KivoDrawingTools {

struct STextRenderer;

/// The name is a texture: construction, destruction and renaming want the OpenGL context current.
class CKivoMeasurePointGroup {
public:
    /// @param points   the host's array, kept as it is and never freed
    /// @param palette  four floats RGBA that outlive the group
    CKivoMeasurePointGroup(unsigned int pointCount, unsigned int floatsPerPoint, float* points,
                           const float* palette, const char* name, STextRenderer* textMaker);
    CKivoMeasurePointGroup(const CKivoMeasurePointGroup&) = delete;
    CKivoMeasurePointGroup& operator=(const CKivoMeasurePointGroup&) = delete;
    virtual ~CKivoMeasurePointGroup();

    /// Replaces the name and its image.
    void SetName(const char* name);
    /// For textures that went with their context.
    void ForgetTextures();
    /// Gives the group a colour of its own, 0x00BBGGRR.
    void SetColor(unsigned long color);

    unsigned int m_pointCount;
    unsigned int m_floatsPerPoint; ///< the first three are x, y, z
    float* m_points;               ///< the host's
    bool m_isReference = true;     ///< false: the destructor would free the points
    bool m_visible = true;
    const float* m_color; ///< RGBA in use: a palette row or m_ownColor
    float m_ownColor[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    std::string m_name;
    SKivoTexImage m_nameImage;
    std::vector<std::string> m_pointNames;        ///< of the first points; empty: none has one
    std::vector<SKivoTexImage> m_pointNameImages; ///< one for each
    std::vector<std::string> m_listedTexts;       ///< that it is listed with; empty: with its name
    std::vector<SKivoTexImage> m_listedImages;    ///< one for each
    STextRenderer* m_textMaker;                   ///< not owned
};

} // namespace KivoDrawingTools
