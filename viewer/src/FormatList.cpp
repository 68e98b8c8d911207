#include "FormatList.h"

#include "GdalReader.h"
#include "PictureFile.h"

namespace KivoViewer {

std::string FormatList() {
    std::string list = "Grids read:\n"
                       "  ESRI ASCII grid\n"
                       "  Surfer grid, versions 6 and 7\n"
                       "  Table of points x, y, z\n"
                       "  Matrix of values\n";
    if (HasGdal()) list += "Grids read by GDAL:\n";
    for (const auto& [name, meaning] : GdalFormats())
        list.append("  ").append(name).append(" - ").append(meaning) += '\n';
    list += "Pictures written:\n";
    for (const std::string& ending : PictureEndings())
        list += "  " + ending + '\n';
    return list;
}

} // namespace KivoViewer
