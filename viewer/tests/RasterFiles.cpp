#include "RasterFiles.h"

#include <cpl_string.h>
#include <gdal.h>

#include <stdexcept>

namespace KivoTest {

namespace {

GDALDriverH Driver(const char* name) {
    GDALAllRegister();
    GDALDriverH const driver = GDALGetDriverByName(name);
    if (!driver) throw std::runtime_error(std::string("GDAL has no driver ") + name);
    return driver;
}

void WriteBand(GDALDatasetH dataset, int band, int columns, int rows, const CellValue& value) {
    std::vector<float> row(static_cast<std::size_t>(columns));
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c)
            row[static_cast<std::size_t>(c)] = value(c, r, band);
        if (GDALRasterIO(GDALGetRasterBand(dataset, band), GF_Write, 0, r, columns, 1, row.data(), columns, 1,
                         GDT_Float32, 0, 0) != CE_None)
            throw std::runtime_error("GDAL cannot write");
    }
}

void WriteVariable(GDALGroupH group, GDALDimensionH* axes, const std::string& name, int place) {
    GDALExtendedDataTypeH const type = GDALExtendedDataTypeCreate(GDT_Float64);
    GDALMDArrayH const array = GDALGroupCreateMDArray(group, name.c_str(), 2, axes, type, nullptr);
    double values[12];
    for (int i = 0; i < 12; ++i)
        values[i] = 100 * place + i;
    const GUInt64 start[] = {0, 0};
    const size_t count[] = {3, 4};
    GDALMDArrayWrite(array, start, count, nullptr, nullptr, type, values, values, sizeof values);
    GDALMDArrayRelease(array);
    GDALExtendedDataTypeRelease(type);
}

} // namespace

void WriteGeoTiff(const std::string& path, int columns, int rows, int bands, const CellValue& value,
                  const std::vector<std::string>& creation) {
    CPLStringList options;
    for (const std::string& option : creation)
        options.AddString(option.c_str());
    GDALDatasetH const dataset =
        GDALCreate(Driver("GTiff"), path.c_str(), columns, rows, bands, GDT_Float32, options.List());
    double place[] = {1000.0, 10.0, 0.0, 5000.0, 0.0, -10.0};
    GDALSetGeoTransform(dataset, place);
    for (int band = 1; band <= bands; ++band)
        WriteBand(dataset, band, columns, rows, value);
    GDALClose(dataset);
}

void WriteNetCdf(const std::string& path, const std::vector<std::string>& variables) {
    GDALDatasetH const dataset = GDALCreateMultiDimensional(Driver("netCDF"), path.c_str(), nullptr, nullptr);
    GDALGroupH const group = GDALDatasetGetRootGroup(dataset);
    GDALDimensionH axes[] = {GDALGroupCreateDimension(group, "y", nullptr, nullptr, 3, nullptr),
                             GDALGroupCreateDimension(group, "x", nullptr, nullptr, 4, nullptr)};
    for (std::size_t i = 0; i < variables.size(); ++i)
        WriteVariable(group, axes, variables[i], static_cast<int>(i));
    for (GDALDimensionH const axis : axes)
        GDALDimensionRelease(axis);
    GDALGroupRelease(group);
    GDALClose(dataset);
}

} // namespace KivoTest
