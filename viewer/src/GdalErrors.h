// What GDAL has to say.
#pragma once

#include <cpl_error.h>

namespace KivoViewer {

/// Keeps GDAL's messages from the terminal: they go into ours.
class QuietErrors {
public:
    QuietErrors() {
        CPLPushErrorHandler(CPLQuietErrorHandler);
        CPLErrorReset();
    }
    ~QuietErrors() { CPLPopErrorHandler(); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
};

} // namespace KivoViewer
