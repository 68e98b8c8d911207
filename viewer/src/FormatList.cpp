#include "FormatList.h"

#include "GdalReader.h"
#include "Language.h"
#include "PictureFile.h"

namespace KivoViewer {

std::string FormatList() {
    std::string list = Translate("Formats", "Grids read:") + '\n';
    for (const std::string& format :
         {Translate("Formats", "ESRI ASCII grid"), Translate("Formats", "Surfer grid, versions 6 and 7"),
          Translate("Formats", "Table of points x, y, z"), Translate("Formats", "Matrix of values")})
        list += "  " + format + '\n';
    if (HasGdal()) list += Translate("Formats", "Grids read by GDAL:") + '\n';
    for (const auto& [name, meaning] : GdalFormats())
        list.append("  ").append(name).append(" - ").append(meaning) += '\n';
    list += Translate("Formats", "Pictures written:") + '\n';
    for (const std::string& ending : PictureEndings())
        list += "  " + ending + '\n';
    return list;
}

} // namespace KivoViewer
