#include "PictureMode.h"

#include "Picture.h"
#include "PlotScene.h"
#include "PngWriter.h"

namespace KivoViewer {

void WritePicture(const Content& content, const Options& options) {
    const PictureFormat format = {options.width, options.height, options.dpi};
    const auto show = [&](PlotScene& scene) {
        ShowContent(scene, content, options);
        if (options.traceAt) scene.TraceAt(options.traceAt->x, options.traceAt->y);
    };
    WritePng(options.picture, DrawPicture(format, show), format);
}

} // namespace KivoViewer
