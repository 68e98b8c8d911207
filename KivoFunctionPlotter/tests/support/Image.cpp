#include "Image.h"

#include "KivoPicture.h"
#include "TestOutput.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <fstream>

namespace KivoDrawingTools {

namespace {

std::size_t ByteCount(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
}

Image DifferenceImage(const Image& a, const Image& b) {
    Image difference(a.width, a.height);
    for (std::size_t i = 0; i < a.rgba.size(); ++i)
        difference.rgba[i] =
            i % 4 == 3 ? 255 : static_cast<unsigned char>(std::abs(int{a.rgba[i]} - int{b.rgba[i]}));
    return difference;
}

} // namespace

Image::Image(int imageWidth, int imageHeight)
    : width(imageWidth), height(imageHeight), rgba(ByteCount(imageWidth, imageHeight)) {}

unsigned char* Image::Pixel(int x, int y) {
    return rgba.data() +
           (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 4;
}

const unsigned char* Image::Pixel(int x, int y) const {
    return const_cast<Image*>(this)->Pixel(x, y);
}

bool Image::IsNear(int x, int y, const int (&rgb)[3], int limit) const {
    for (int channel = 0; channel < 3; ++channel)
        if (std::abs(int{Pixel(x, y)[channel]} - rgb[channel]) > limit) return false;
    return true;
}

int Image::Count(const std::function<bool(const unsigned char*)>& condition) const {
    int count = 0;
    for (std::size_t i = 0; i < rgba.size(); i += 4)
        count += condition(&rgba[i]) ? 1 : 0;
    return count;
}

bool IsWhite(const unsigned char* rgb) {
    return rgb[0] == 255 && rgb[1] == 255 && rgb[2] == 255;
}

bool IsInk(const unsigned char* rgb) {
    return !IsWhite(rgb);
}

int CountInk(const Image& image) {
    return image.Count(IsInk);
}

Image CaptureImage(CKivoFunctionPlotter& plotter) {
    Image image;
    EXPECT_EQ(CapturePicture(plotter, image.rgba, image.width, image.height), 0);
    return image;
}

Image CaptureImage(CKivoFunctionPlotter& plotter, int width, int height) {
    Image image;
    EXPECT_EQ(CapturePicture(plotter, width, height, image.rgba), 0);
    image.width = width;
    image.height = height;
    EXPECT_EQ(image.rgba.size(), ByteCount(width, height));
    return image;
}

Image ReadBuffer(unsigned int buffer, int width, int height) {
    Image upsideDown(width, height);
    GLint previous = GL_BACK;
    glGetIntegerv(GL_READ_BUFFER, &previous);
    glReadBuffer(buffer);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, upsideDown.rgba.data());
    glReadBuffer(static_cast<GLenum>(previous));
    Image image(width, height);
    for (int y = 0; y < height; ++y)
        std::copy_n(upsideDown.Pixel(0, height - 1 - y), static_cast<std::size_t>(width) * 4,
                    image.Pixel(0, y));
    return image;
}

ImageDifference Compare(const Image& a, const Image& b) {
    ImageDifference result;
    double sum = 0.0;
    for (std::size_t i = 0; i < a.rgba.size(); ++i) {
        if (i % 4 == 3) continue;
        const int difference = std::abs(int{a.rgba[i]} - int{b.rgba[i]});
        result.max = std::max(result.max, difference);
        sum += difference;
    }
    if (!a.rgba.empty()) result.mean = sum / (static_cast<double>(a.rgba.size()) * 0.75);
    return result;
}

testing::AssertionResult ImagesAgree(const Image& actual, const Image& expected, int maxLimit,
                                     double meanLimit, const std::string& name) {
    if (actual.width != expected.width || actual.height != expected.height ||
        actual.rgba.size() != expected.rgba.size())
        return testing::AssertionFailure() << "size " << actual.width << " x " << actual.height
                                           << " instead of " << expected.width << " x " << expected.height;
    const ImageDifference difference = Compare(actual, expected);
    if (difference.max <= maxLimit && difference.mean <= meanLimit) return testing::AssertionSuccess();
    const std::string path = KivoTest::OutputPath(name);
    WritePam(actual, path + "-actual.pam");
    WritePam(expected, path + "-expected.pam");
    WritePam(DifferenceImage(actual, expected), path + "-difference.pam");
    return testing::AssertionFailure() << "difference at most " << difference.max << ", mean "
                                       << difference.mean << "; see " << path << "-*.pam";
}

bool WritePam(const Image& image, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << "P7\nWIDTH " << image.width << "\nHEIGHT " << image.height
         << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
    file.write(reinterpret_cast<const char*>(image.rgba.data()),
               static_cast<std::streamsize>(image.rgba.size()));
    return file.good();
}

bool ReadPam(const std::string& path, Image& image) {
    std::ifstream file(path, std::ios::binary);
    std::string word;
    if (!(file >> word) || word != "P7") return false;
    int width = 0, height = 0, depth = 0, largest = 0;
    while (file >> word && word != "ENDHDR") {
        if (word == "WIDTH")
            file >> width;
        else if (word == "HEIGHT")
            file >> height;
        else if (word == "DEPTH")
            file >> depth;
        else if (word == "MAXVAL")
            file >> largest;
        else
            file >> word; // the tuple type follows from the depth
    }
    if (!file || width < 1 || height < 1 || depth != 4 || largest != 255) return false;
    file.get(); // the line end of the header
    image = Image(width, height);
    file.read(reinterpret_cast<char*>(image.rgba.data()), static_cast<std::streamsize>(image.rgba.size()));
    return file.gcount() == static_cast<std::streamsize>(image.rgba.size());
}

} // namespace KivoDrawingTools
