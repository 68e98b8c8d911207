// Makes EGL refuse.
#pragma once

namespace KivoTest {

/// For as long as it lives, the driver makes no contexts. One at a time.
class EglFault {
public:
    EglFault();
    ~EglFault();
    EglFault(const EglFault&) = delete;
    EglFault& operator=(const EglFault&) = delete;
};

} // namespace KivoTest
