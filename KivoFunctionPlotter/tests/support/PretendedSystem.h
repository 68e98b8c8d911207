// Operations of the window system that answer as those of another system do.
#pragma once

#include "window_system/WindowSystem.h"

namespace KivoTest {

/// For as long as it lives, bitmaps have another depth and texts another encoding. One at a time.
class PretendedSystem {
public:
    KivoDrawingTools::UINT codePage = KivoDrawingTools::CP_UTF8;
    KivoDrawingTools::BOOL (*isLeadByte)(KivoDrawingTools::BYTE byte) = nullptr; ///< null: no byte is one
    bool has24Bits = false; ///< bitmaps of 24 bits, the rows of which take an even number of bytes

    PretendedSystem();
    ~PretendedSystem();
    PretendedSystem(const PretendedSystem&) = delete;
    PretendedSystem& operator=(const PretendedSystem&) = delete;
};

} // namespace KivoTest
