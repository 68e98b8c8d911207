#include "PictureMode.h"

#include "PictureFile.h"
#include "PlotScene.h"

namespace KivoViewer {

void WritePicture(const Content& content, const Options& options) {
    const auto show = [&](PlotScene& scene) {
        ShowContent(scene, content, options);
        if (options.traceAt) scene.TraceAt(options.traceAt->x, options.traceAt->y);
    };
    PictureFormat format = options.format;
    format.width = options.width;
    format.height = options.height;
    WritePictureFile(options.picture, DrawPicture(format, show), format);
}

} // namespace KivoViewer
