#include "KivoMeasurePointGroupManager.h"

namespace KivoDrawingTools {

CKivoMeasurePointGroupManager::~CKivoMeasurePointGroupManager() = default;

} // namespace KivoDrawingTools
