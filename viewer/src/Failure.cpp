#include "Failure.h"

#include <algorithm>

namespace KivoViewer {

std::string OneLine(std::string text) {
    const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7f; };
    while (!text.empty() && isControl(static_cast<unsigned char>(text.back())))
        text.pop_back();
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

} // namespace KivoViewer
