// The groups of measure points of one plot.
#pragma once

#include "KivoMeasurePointGroup.h"

#include <vector>

namespace KivoDrawingTools {

/// Owns the groups, in the order of adding.
class CKivoMeasurePointGroupManager {
public:
    CKivoMeasurePointGroupManager() = default;
    CKivoMeasurePointGroupManager(const CKivoMeasurePointGroupManager&) = delete;
    CKivoMeasurePointGroupManager& operator=(const CKivoMeasurePointGroupManager&) = delete;
    virtual ~CKivoMeasurePointGroupManager();

    /// Appends a group in the next colour of the palette; after ten groups the palette begins anew.
    void AddGroup(unsigned int pointCount, unsigned int floatsPerPoint, float* points, const char* name,
                  STextRenderer* textMaker);
    void RemoveAll();

    unsigned int m_nextColor = 0;                  ///< palette row of the next group
    std::vector<CKivoMeasurePointGroup*> m_groups; ///< owned
};

} // namespace KivoDrawingTools
