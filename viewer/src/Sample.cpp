#include "Sample.h"

#include "Failure.h"
#include "GridReader.h"
#include "Language.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace KivoViewer {

GridData ReadSample() {
    QFile file(":/samples/terrain.asc");
    if (!file.open(QIODevice::ReadOnly))
        throw Failure(Translate("Files", "the sample terrain is missing from the program"));
    GridData grid = ReadGrid(file.readAll().toStdString(), "terrain.asc");
    grid.title = "Cumberland Mountains";
    const char* const axisTitles[] = {"East [km]", "North [km]", "Elevation [m]"};
    std::copy(std::begin(axisTitles), std::end(axisTitles), std::begin(grid.axisTitles));
    return grid;
}

} // namespace KivoViewer
