#include "PictureFile.h"

#include "Failure.h"
#include "Language.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace KivoViewer {

namespace {

constexpr int jpegQuality = 95; // of 100: letters keep their edges

struct FileFormat {
    const char* ending;
    const char* name; // Qt's
    bool hasAlpha;

    bool Is(std::string_view other) const { return other == name; }
};

constexpr FileFormat png = {".png", "png", true};
constexpr FileFormat allFormats[] = {png,
                                     {".jpg", "jpeg", false},
                                     {".jpeg", "jpeg", false},
                                     {".tif", "tiff", true},
                                     {".tiff", "tiff", true},
                                     {".webp", "webp", true},
                                     {".pdf", "pdf", true}};

std::vector<FileFormat> FormatsHere() {
    const QList<QByteArray> writable = QImageWriter::supportedImageFormats();
    std::vector<FileFormat> formats;
    for (const FileFormat& format : allFormats)
        if (format.Is("pdf") || writable.contains(format.name)) formats.push_back(format);
    return formats;
}

FileFormat FormatOf(const std::string& path) {
    if (path == standardOutput) return png;
    const QString name = QFile::decodeName(path.c_str());
    for (const FileFormat& format : FormatsHere())
        if (name.endsWith(format.ending, Qt::CaseInsensitive)) return format;
    throw Failure(path + ": " +
                  Filled(Translate("Pictures", "a picture's name must end in %1"), Listed(PictureEndings())));
}

[[noreturn]] void FailToWrite(const std::string& path, const std::string& reason) {
    throw Failure((path == standardOutput ? Translate("Pictures", "standard output") : path) + ": " +
                  Filled(Translate("Pictures", "cannot write it: %1"), reason));
}

// The pixels stay where they are; opaque ones are not given a channel for opacity.
QImage ImageOf(const std::vector<unsigned char>& rgba, const PictureFormat& format) {
    constexpr double metresPerInch = 0.0254;
    QImage image(rgba.data(), format.width, format.height, qsizetype{4} * format.width,
                 format.isTransparent ? QImage::Format_RGBA8888 : QImage::Format_RGBX8888);
    const int dotsPerMetre = static_cast<int>(std::lround(format.dpi / metresPerInch));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    image.setColorSpace(QColorSpace::SRgb);
    return image;
}

void WritePdf(QIODevice& device, const QImage& image, const PictureFormat& format, const std::string& path) {
    QPdfWriter writer(&device);
    writer.setCreator("kivo-viewer");
    writer.setResolution(format.dpi);
    const QSizeF inches = QSizeF(format.width, format.height) / format.dpi;
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(inches, QPageSize::Inch, {}, QPageSize::ExactMatch));
    QPainter painter;
    if (!painter.begin(&writer)) FailToWrite(path, Translate("Pictures", "the page cannot be made"));
    painter.setRenderHint(QPainter::LosslessImageRendering); // by itself Qt takes JPEG
    painter.drawImage(QRectF(QPointF(), QSizeF(writer.width(), writer.height())), image);
    painter.end();
}

void Write(QIODevice& device, const QImage& image, const PictureFormat& format, const std::string& path) {
    const FileFormat fileFormat = FormatOf(path);
    if (fileFormat.Is("pdf")) return WritePdf(device, image, format, path);
    QImageWriter writer(&device, fileFormat.name);
    if (!fileFormat.hasAlpha) writer.setQuality(jpegQuality);
    if (fileFormat.Is("tiff")) writer.setCompression(1); // LZW
    if (fileFormat.Is("webp")) writer.setQuality(100);   // without loss
    if (!writer.write(image)) FailToWrite(path, writer.errorString().toStdString());
}

// The file behind links; what is no file, such as a device, must not be replaced by one.
std::string TargetOf(const std::string& path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error) FailToWrite(path, error.message());
    const std::filesystem::file_status status = std::filesystem::status(target, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        FailToWrite(path, Translate("Pictures", "it is not a file"));
    return target.string();
}

void WriteToStandardOutput(const QImage& image, const PictureFormat& format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Write(buffer, image, format, standardOutput);
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly) || output.write(buffer.data()) != buffer.size() ||
        !output.flush())
        FailToWrite(standardOutput, output.errorString().toStdString());
}

} // namespace

std::vector<std::string> PictureEndings() {
    std::vector<std::string> endings;
    for (const FileFormat& format : FormatsHere())
        endings.emplace_back(format.ending);
    return endings;
}

void CheckPictureName(const std::string& path, bool isTransparent) {
    if (isTransparent && !FormatOf(path).hasAlpha)
        throw Failure(path + ": " + Translate("Pictures", "JPEG has no transparency; take another format"));
    FormatOf(path);
}

void WritePictureFile(const std::string& path, const std::vector<unsigned char>& rgba,
                      const PictureFormat& format) {
    const QImage image = ImageOf(rgba, format);
    if (path == standardOutput) return WriteToStandardOutput(image, format);
    QSaveFile file(QFile::decodeName(TargetOf(path).c_str()));
    if (!file.open(QIODevice::WriteOnly)) FailToWrite(path, file.errorString().toStdString());
    Write(file, image, format, path);
    if (!file.commit()) FailToWrite(path, file.errorString().toStdString());
}

} // namespace KivoViewer
