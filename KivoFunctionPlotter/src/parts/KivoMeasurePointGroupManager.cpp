#include "KivoMeasurePointGroupManager.h"

#include <memory>

namespace KivoDrawingTools {

namespace {

constexpr unsigned int paletteSize = 10;
constexpr float palette[paletteSize][4] = {{0.8f, 0.8f, 0.8f, 1.0f},   {0.5f, 0.25f, 0.25f, 1.0f},
                                           {0.25f, 0.5f, 0.25f, 1.0f}, {0.8f, 0.55f, 0.18f, 1.0f},
                                           {0.24f, 0.3f, 0.54f, 1.0f}, {0.5f, 0.27f, 0.52f, 1.0f},
                                           {0.25f, 0.0f, 0.25f, 1.0f}, {0.75f, 0.75f, 0.75f, 1.0f},
                                           {0.0f, 0.0f, 0.0f, 1.0f},   {1.0f, 1.0f, 1.0f, 1.0f}};

} // namespace

CKivoMeasurePointGroupManager::~CKivoMeasurePointGroupManager() {
    RemoveAll();
}

void CKivoMeasurePointGroupManager::AddGroup(unsigned int pointCount, unsigned int floatsPerPoint,
                                             float* points, const char* name, STextRenderer* textMaker) {
    auto group = std::make_unique<CKivoMeasurePointGroup>(pointCount, floatsPerPoint, points,
                                                          palette[m_nextColor], name, textMaker);
    m_groups.push_back(group.get());
    static_cast<void>(group.release()); // it is in the list now
    m_nextColor = (m_nextColor + 1) % paletteSize;
}

void CKivoMeasurePointGroupManager::RemoveAll() {
    for (CKivoMeasurePointGroup* group : m_groups)
        delete group;
    m_groups.clear();
}

} // namespace KivoDrawingTools
