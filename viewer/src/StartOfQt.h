// Where no window can be opened, Qt ends the program with words of its own, and a core dump.
#pragma once

namespace KivoViewer {

/// While one lives, that ends the program with exit status 2 and one sentence that says what to do. To be
/// made before QApplication. What Qt says meanwhile, it says afterwards.
class StartOfQt {
public:
    StartOfQt();
    ~StartOfQt();
    StartOfQt(const StartOfQt&) = delete;
    StartOfQt& operator=(const StartOfQt&) = delete;
};

} // namespace KivoViewer
