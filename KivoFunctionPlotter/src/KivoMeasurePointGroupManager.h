// The groups of measure points of one plot.
#pragma once

#include <vector>

namespace KivoDrawingTools {

class CKivoMeasurePointGroup;

/// Owns the groups, in the order of adding.
class CKivoMeasurePointGroupManager {
public:
    virtual ~CKivoMeasurePointGroupManager();

    unsigned int m_nextColor = 0;                  ///< palette row of the next group
    std::vector<CKivoMeasurePointGroup*> m_groups; ///< owned
};

} // namespace KivoDrawingTools
