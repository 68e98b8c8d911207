#include "GdalReader.h"

#ifdef KIVO_HAS_GDAL

#include "Failure.h"
#include "GdalErrors.h"
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <string_view>

namespace KivoViewer {

namespace {

struct CloseDataset {
    void operator()(void* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

void SetUp() {
    constexpr GIntBig blockCache = GIntBig{128}
                                   << 20; // each block is read once: a larger one only costs memory
    GDALAllRegister();
    GDALSetCacheMax64(blockCache);
    CPLSetThreadLocalConfigOption("GDAL_NUM_THREADS", "ALL_CPUS");
}

// Tables of points are read by ourselves.
bool IsWanted(GDALDriverH driver) {
    return GDALGetDescription(driver) != std::string_view("XYZ");
}

[[noreturn]] void Fail(const std::string& path) {
    throw Failure(path + ": " + OneLine(CPLGetLastErrorMsg()));
}

// The part of a raster that is read, and the step from one row or column of it to the next: an odd number, so
// that the middle of each block of cells is a cell.
struct Window {
    int column = 0;
    int row = 0;
    int columns = 0;
    int rows = 0;
    int step = 1;

    int ReadColumns() const { return columns / step; }
    int ReadRows() const { return rows / step; }
};

// As many points as a screen has pixels, with which the plot still keeps up.
constexpr double reducedPointCount = 4e6;

int StepFor(double columns, double rows) {
    if (columns * rows <= static_cast<double>(maxPointCount)) return 1;
    int step = 3;
    while (std::floor(columns / step) * std::floor(rows / step) > reducedPointCount)
        step += 2;
    return step;
}

// GDAL's coefficients, of which the second to fourth would turn the raster, say how a place follows from
// column and row. Rasters without a place count from 0.
struct Placement {
    double x = -0.5;
    double columnStep = 1.0;
    double y = 0.5;
    double rowStep = -1.0;

    Placement(GDALDatasetH dataset, const std::string& path) {
        double t[6];
        if (GDALGetGeoTransform(dataset, t) != CE_None) return;
        if (t[2] != 0.0 || t[4] != 0.0)
            throw Failure(path + ": " + Translate("Files", "the raster is rotated"));
        x = t[0];
        columnStep = t[1];
        y = t[3];
        rowStep = t[5];
    }
};

// The cells along an axis whose centres lie in a range.
// @param first, count  of the cells; changed
void Narrow(double corner, double step, double from, double to, int& first, int& count) {
    const double a = (from - corner) / step - 0.5;
    const double b = (to - corner) / step - 0.5;
    const double begin = std::clamp(std::ceil(std::min(a, b)), 0.0, static_cast<double>(count));
    const double end = std::clamp(std::floor(std::max(a, b)) + 1.0, begin, static_cast<double>(count));
    first = static_cast<int>(begin);
    count = static_cast<int>(end - begin);
}

Window WindowOf(GDALDatasetH dataset, const Placement& place, const std::optional<Region>& region,
                const std::string& path) {
    Window window;
    window.columns = GDALGetRasterXSize(dataset);
    window.rows = GDALGetRasterYSize(dataset);
    if (region) {
        Narrow(place.x, place.columnStep, region->x0, region->x1, window.column, window.columns);
        Narrow(place.y, place.rowStep, region->y0, region->y1, window.row, window.rows);
        CheckRegion(path, static_cast<std::size_t>(window.columns), static_cast<std::size_t>(window.rows));
    }
    window.step = StepFor(window.columns, window.rows);
    return window;
}

// Of the cells that are read.
std::vector<double> Centers(const std::string& path, double corner, double step, int first, int every,
                            int count) {
    const int middleCell = first + every / 2;
    const double middle = middleCell + 0.5;
    return EvenCoordinates(path, corner + middle * step, every * step, static_cast<std::size_t>(count));
}

// How stored values become those of the surface.
struct Meaning {
    bool hasNoData = false;
    double noData = 0.0;
    double scale = 1.0;
    double offset = 0.0;

    explicit Meaning(GDALRasterBandH band) {
        int isThere = 0;
        noData = GDALGetRasterNoDataValue(band, &isThere);
        hasNoData = isThere != 0;
        scale = GDALGetRasterScale(band, nullptr);
        offset = GDALGetRasterOffset(band, nullptr);
    }

    double ValueOf(double stored) const {
        constexpr double hole = std::numeric_limits<double>::quiet_NaN();
        if (hasNoData && IsNoData(stored)) return hole;
        const double value = stored * scale + offset;
        return FitsSinglePrecision(value) ? value : hole;
    }

private:
    // The mark may have been rounded on the way into a raster of single precision.
    bool IsNoData(double stored) const {
        if (stored == noData) return true;
        return FitsSinglePrecision(stored) && FitsSinglePrecision(noData) &&
               static_cast<float>(stored) == static_cast<float>(noData);
    }
};

std::vector<double> ReadValues(GDALRasterBandH band, const Window& window, const std::string& path,
                               const Progress& progress) {
    constexpr int rowsAtOnce = 32;
    const Meaning meaning(band);
    const int columns = window.ReadColumns();
    const int rows = window.ReadRows();
    std::vector<double> block(static_cast<std::size_t>(columns) * rowsAtOnce);
    std::vector<double> z;
    z.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    for (int r = 0; r < rows; r += rowsAtOnce) {
        Report(progress, static_cast<double>(r) / rows);
        const int count = std::min(rowsAtOnce, rows - r);
        if (GDALRasterIO(band, GF_Read, window.column, window.row + r * window.step, columns * window.step,
                         count * window.step, block.data(), columns, count, GDT_Float64, 0, 0) != CE_None)
            Fail(path);
        const auto end = block.begin() + static_cast<std::ptrdiff_t>(columns) * count;
        std::transform(block.begin(), end, std::back_inserter(z),
                       [&meaning](double stored) { return meaning.ValueOf(stored); });
    }
    Report(progress, 1.0);
    return z;
}

// The parts of a file that GDAL opens one at a time, by the names that it gives them.
std::vector<std::string> PartsOf(GDALDatasetH dataset) {
    std::vector<std::string> parts;
    char** const list = GDALGetMetadata(dataset, "SUBDATASETS");
    for (int i = 1;; ++i) {
        const char* const name =
            CSLFetchNameValue(list, ("SUBDATASET_" + std::to_string(i) + "_NAME").c_str());
        if (!name) return parts;
        parts.emplace_back(name);
    }
}

[[noreturn]] void FailWithoutBand(GDALDatasetH dataset, const std::string& path, const ReadOptions& options) {
    const std::vector<std::string> parts = PartsOf(dataset);
    if (parts.empty()) throw Failure(path + ": " + Translate("Files", "no raster band in it"));
    std::string list;
    for (const std::string& part : parts)
        list += (list.empty() ? "" : ", ") + part;
    std::vector<Reading> readings;
    readings.reserve(parts.size());
    for (const std::string& part : parts)
        readings.push_back({part.substr(part.find_last_of(':') + 1), part, options});
    throw OpenQuestion(
        path + ": " +
            Filled(Translate("Files", "several variables; open one of them by its whole name: %1"), list),
        readings);
}

// What a band holds, as far as the file says it: a name, its place in further dimensions, a colour.
std::string WordsOf(GDALRasterBandH band, int number) {
    std::string words = Filled(Translate("Files", "Band %1"), number);
    std::string separator = ": ";
    const auto add = [&](const std::string& text) {
        words += separator + text;
        separator = ", ";
    };
    const std::string name = GDALGetDescription(band);
    if (!name.empty()) add(name);
    constexpr std::string_view dimension = "NETCDF_DIM_";
    char** const metadata = GDALGetMetadata(band, nullptr);
    for (int i = 0; i < CSLCount(metadata); ++i)
        if (const std::string_view entry = metadata[i]; entry.substr(0, dimension.size()) == dimension)
            add(std::string(entry.substr(dimension.size())));
    const GDALColorInterp color = GDALGetRasterColorInterpretation(band);
    if (color > GCI_GrayIndex) add(GDALGetColorInterpretationName(color));
    return words;
}

[[noreturn]] void AskForBand(GDALDatasetH dataset, const std::string& path, ReadOptions options) {
    const int count = GDALGetRasterCount(dataset);
    std::vector<Reading> readings;
    for (int band = 1; band <= count; ++band) {
        options.band = band;
        readings.push_back({WordsOf(GDALGetRasterBand(dataset, band), band), path, options});
    }
    throw OpenQuestion(path + ": " + Filled(Translate("Files", "%1 bands; --band says which"), count),
                       readings);
}

int BandOf(GDALDatasetH dataset, const ReadOptions& options, const std::string& path) {
    const int count = GDALGetRasterCount(dataset);
    if (count == 0) FailWithoutBand(dataset, path, options);
    if (options.band > count)
        throw Failure(
            path + ": " +
            Filled(Translate("Files", "there is no band %1; the last one is %2"), options.band, count));
    if (count > 1 && options.band < 1 && options.asks) AskForBand(dataset, path, options);
    return std::max(options.band, 1);
}

// Of odd steps.
std::string WordsForStep(int step) {
    if (step % 10 == 1 && step % 100 != 11) return Translate("Files", "every %1st of %2 x %3 points");
    if (step % 10 == 3 && step % 100 != 13) return Translate("Files", "every %1rd of %2 x %3 points");
    return Translate("Files", "every %1th of %2 x %3 points");
}

std::string NoteOn(GDALDatasetH dataset, int band, bool wasChosen, const Window& window) {
    std::string note;
    const int bands = GDALGetRasterCount(dataset);
    if (bands > 1 && !wasChosen) note = Filled(Translate("Files", "band %1 of %2"), band, bands);
    if (window.step == 1) return note;
    return note + (note.empty() ? "" : ", ") +
           Filled(WordsForStep(window.step), window.step, window.columns, window.rows);
}

// A title says of GDAL's names for a part what is beyond the format.
std::string TitleOf(const std::string& path) {
    std::string title = path.substr(path.find_last_of('/') + 1);
    title.erase(std::remove(title.begin(), title.end(), '"'), title.end());
    return title;
}

} // namespace

bool HasGdal() {
    return true;
}

std::vector<std::pair<std::string, std::string>> GdalFormats() {
    const QuietErrors quiet;
    SetUp();
    std::vector<std::pair<std::string, std::string>> formats;
    for (int i = 0; i < GDALGetDriverCount(); ++i) {
        GDALDriverH const driver = GDALGetDriver(i);
        const bool isRaster = GDALGetMetadataItem(driver, GDAL_DCAP_RASTER, nullptr) != nullptr;
        const char* const name = GDALGetMetadataItem(driver, GDAL_DMD_LONGNAME, nullptr);
        if (isRaster && IsWanted(driver)) formats.emplace_back(GDALGetDescription(driver), name ? name : "");
    }
    return formats;
}

std::optional<GridData> ReadWithGdal(const std::string& path, const ReadOptions& options,
                                     const Progress& progress) {
    const QuietErrors quiet;
    SetUp();
    GDALDriverH const driver = GDALIdentifyDriverEx(path.c_str(), GDAL_OF_RASTER, nullptr, nullptr);
    if (!driver || !IsWanted(driver)) return std::nullopt;
    const Dataset dataset(
        GDALOpenEx(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr));
    if (!dataset) Fail(path);
    const int band = BandOf(dataset.get(), options, path);
    const Placement place(dataset.get(), path);
    const Window window = WindowOf(dataset.get(), place, options.region, path);
    GridData grid = MakeGrid(
        path, Centers(path, place.x, place.columnStep, window.column, window.step, window.ReadColumns()),
        Centers(path, place.y, place.rowStep, window.row, window.step, window.ReadRows()),
        ReadValues(GDALGetRasterBand(dataset.get(), band), window, path, progress));
    grid.title = TitleOf(path);
    grid.note = NoteOn(dataset.get(), band, options.band > 0, window);
    return grid;
}

} // namespace KivoViewer

#else

namespace KivoViewer {

bool HasGdal() {
    return false;
}

std::vector<std::pair<std::string, std::string>> GdalFormats() {
    return {};
}

std::optional<GridData> ReadWithGdal(const std::string&, const ReadOptions&, const Progress&) {
    return std::nullopt;
}

} // namespace KivoViewer

#endif
