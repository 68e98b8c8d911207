#include "GdalReader.h"

#ifdef KIVO_HAS_GDAL

#include "Failure.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <cpl_error.h>
#include <gdal.h>

#include <cmath>
#include <limits>
#include <memory>

namespace KivoViewer {

namespace {

// What GDAL has to say goes into our messages, not to the terminal.
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

struct CloseDataset {
    void operator()(void* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

[[noreturn]] void Fail(const std::string& path) {
    throw Failure(path + ": " + OneLine(CPLGetLastErrorMsg()));
}

// Centres of the cells along an axis: the second to fourth of GDAL's coefficients say how a place follows
// from column and row.
struct Coordinates {
    std::vector<double> x;
    std::vector<double> y;
};

Coordinates CoordinatesOf(GDALDatasetH dataset, const std::string& path) {
    const auto columns = static_cast<std::size_t>(GDALGetRasterXSize(dataset));
    const auto rows = static_cast<std::size_t>(GDALGetRasterYSize(dataset));
    double t[6];
    if (GDALGetGeoTransform(dataset, t) != CE_None)
        return {EvenCoordinates(path, 0.0, 1.0, columns), EvenCoordinates(path, 0.0, -1.0, rows)};
    if (t[2] != 0.0 || t[4] != 0.0) throw Failure(path + ": the raster is rotated");
    return {EvenCoordinates(path, t[0] + t[1] / 2.0, t[1], columns),
            EvenCoordinates(path, t[3] + t[5] / 2.0, t[5], rows)};
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

std::vector<double> ReadValues(GDALRasterBandH band, const std::string& path, const Progress& progress) {
    const Meaning meaning(band);
    const int columns = GDALGetRasterBandXSize(band);
    const int rows = GDALGetRasterBandYSize(band);
    std::vector<double> row(static_cast<std::size_t>(columns));
    std::vector<double> z;
    for (int r = 0; r < rows; ++r) {
        Report(progress, static_cast<double>(r) / rows);
        if (GDALRasterIO(band, GF_Read, 0, r, columns, 1, row.data(), columns, 1, GDT_Float64, 0, 0) !=
            CE_None)
            Fail(path);
        for (const double stored : row)
            z.push_back(meaning.ValueOf(stored));
    }
    return z;
}

} // namespace

bool HasGdal() {
    return true;
}

std::optional<GridData> ReadWithGdal(const std::string& path, const Progress& progress) {
    const QuietErrors quiet;
    GDALAllRegister();
    if (!GDALIdentifyDriverEx(path.c_str(), GDAL_OF_RASTER, nullptr, nullptr)) return std::nullopt;
    const Dataset dataset(
        GDALOpenEx(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, nullptr, nullptr, nullptr));
    if (!dataset) Fail(path);
    if (GDALGetRasterCount(dataset.get()) == 0) throw Failure(path + ": no raster band in it");
    CheckSize(path, GDALGetRasterXSize(dataset.get()), GDALGetRasterYSize(dataset.get()));
    const Coordinates coordinates = CoordinatesOf(dataset.get(), path);
    return MakeGrid(path, coordinates.x, coordinates.y,
                    ReadValues(GDALGetRasterBand(dataset.get(), 1), path, progress));
}

} // namespace KivoViewer

#else

namespace KivoViewer {

bool HasGdal() {
    return false;
}

std::optional<GridData> ReadWithGdal(const std::string&, const Progress&) {
    return std::nullopt;
}

} // namespace KivoViewer

#endif
