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
        if (!std::isnormal(t[1]) || !std::isnormal(t[5]) || !std::isfinite(t[0]) || !std::isfinite(t[3]))
            throw Failure(path + ": " + Translate("Files", "its cells have no size or place"));
        x = t[0];
        columnStep = t[1];
        y = t[3];
        rowStep = t[5];
    }
};

GridWindow WindowOfRaster(GDALDatasetH dataset, const Placement& place, const ReadOptions& options,
                          const std::string& path) {
    GridSpan columns = {0, static_cast<std::size_t>(GDALGetRasterXSize(dataset))};
    GridSpan rows = {0, static_cast<std::size_t>(GDALGetRasterYSize(dataset))};
    if (const auto& region = options.region) {
        columns = CellsWithin(place.x, place.columnStep, columns.count, region->x0, region->x1);
        rows = CellsWithin(place.y, place.rowStep, rows.count, region->y0, region->y1);
        CheckRegion(path, columns.count, rows.count);
    }
    return WindowOf(path, columns, rows, options.mostPoints);
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

// What GDAL leaves points out of it decompresses on one core, and whole rows of blocks on all of them. The
// values are the same.
// @return the height of the blocks of a raster for which this pays, else 0
int HeightOfPackedBlocks(GDALDatasetH dataset, GDALRasterBandH band, const GridWindow& window) {
    constexpr double mostCells = 32e6; // in memory
    int width = 0, height = 0;
    GDALGetBlockSize(band, &width, &height);
    const bool isPacked = GDALGetMetadataItem(dataset, "COMPRESSION", "IMAGE_STRUCTURE") != nullptr &&
                          GDALGetDescription(GDALGetDatasetDriver(dataset)) == std::string_view("GTiff");
    const bool isDense = height >= static_cast<int>(window.rows.step) &&
                         static_cast<double>(height) * static_cast<double>(window.columns.count) < mostCells;
    return window.IsReduced() && isPacked && isDense && GDALGetOverviewCount(band) == 0 ? height : 0;
}

// @param Number  holds all values of the type
template <typename Number>
std::vector<double> ReadRowsOfBlocks(GDALRasterBandH band, GDALDataType type, std::size_t height,
                                     const GridWindow& window, const std::string& path,
                                     const Progress& progress) {
    const Meaning meaning(band);
    const GridSpan &columns = window.columns, &rows = window.rows;
    const int width = static_cast<int>(columns.count);
    std::vector<Number> cells(columns.count * height);
    std::vector<double> z;
    z.reserve(window.Size());
    const std::size_t end = rows.first + rows.count;
    for (std::size_t first = rows.first, next; first < end; first = next) {
        Report(progress, static_cast<double>(first - rows.first) / static_cast<double>(rows.count));
        next = std::min((first / height + 1) * height, end);
        const int count = static_cast<int>(next - first);
        if (GDALRasterIO(band, GF_Read, static_cast<int>(columns.first), static_cast<int>(first), width,
                         count, cells.data(), width, count, type, 0, 0) != CE_None)
            Fail(path);
        for (std::size_t row = first; row < next; ++row) {
            const Number* const values = cells.data() + (row - first) * columns.count;
            for (std::size_t i = 0; rows.Has(row) && i < columns.Size(); ++i)
                z.push_back(meaning.ValueOf(static_cast<double>(values[columns.At(i) - columns.first])));
        }
    }
    Report(progress, 1.0);
    return z;
}

std::vector<double> ReadSparsely(GDALRasterBandH band, const GridWindow& window, const std::string& path,
                                 const Progress& progress) {
    constexpr int rowsAtOnce = 32;
    const Meaning meaning(band);
    const int step = static_cast<int>(window.columns.step);
    const int columns = static_cast<int>(window.columns.Size());
    const int rows = static_cast<int>(window.rows.Size());
    std::vector<double> block(window.columns.Size() * rowsAtOnce);
    std::vector<double> z;
    z.reserve(window.Size());
    for (int r = 0; r < rows; r += rowsAtOnce) {
        Report(progress, static_cast<double>(r) / rows);
        const int count = std::min(rowsAtOnce, rows - r);
        const int first = static_cast<int>(window.rows.first) + r * step;
        if (GDALRasterIO(band, GF_Read, static_cast<int>(window.columns.first), first, columns * step,
                         count * step, block.data(), columns, count, GDT_Float64, 0, 0) != CE_None)
            Fail(path);
        const auto end = block.begin() + static_cast<std::ptrdiff_t>(columns) * count;
        std::transform(block.begin(), end, std::back_inserter(z),
                       [&meaning](double stored) { return meaning.ValueOf(stored); });
    }
    Report(progress, 1.0);
    return z;
}

std::vector<double> ReadValues(GDALDatasetH dataset, int number, const GridWindow& window,
                               const std::string& path, const Progress& progress) {
    GDALRasterBandH const band = GDALGetRasterBand(dataset, number);
    const auto height = static_cast<std::size_t>(HeightOfPackedBlocks(dataset, band, window));
    if (height == 0) return ReadSparsely(band, window, path, progress);
    if (GDALDataTypeIsConversionLossy(GDALGetRasterDataType(band), GDT_Float32))
        return ReadRowsOfBlocks<double>(band, GDT_Float64, height, window, path, progress);
    return ReadRowsOfBlocks<float>(band, GDT_Float32, height, window, path, progress);
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

std::string NoteOn(GDALDatasetH dataset, int band, bool wasChosen, const GridWindow& window) {
    std::string note;
    const int bands = GDALGetRasterCount(dataset);
    if (bands > 1 && !wasChosen) note = Filled(Translate("Files", "band %1 of %2"), band, bands);
    if (!window.IsReduced()) return note;
    return note + (note.empty() ? "" : ", ") + window.Note();
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
    const GridWindow window = WindowOfRaster(dataset.get(), place, options, path);
    const auto centers = [&path](double corner, double step, const GridSpan& span) {
        return EvenCoordinates(path, corner + step / 2.0, step, span);
    };
    GridData grid = MakeGrid(path, centers(place.x, place.columnStep, window.columns),
                             centers(place.y, place.rowStep, window.rows),
                             ReadValues(dataset.get(), band, window, path, progress));
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
