// Makes EGL refuse.
#pragma once

namespace KivoTest {

/// For as long as it lives, the driver makes no contexts, or no surfaces of more than so many pixels. One at
/// a time.
class EglFault {
public:
    EglFault();
    explicit EglFault(long mostPixels);
    ~EglFault();
    EglFault(const EglFault&) = delete;
    EglFault& operator=(const EglFault&) = delete;
};

} // namespace KivoTest
