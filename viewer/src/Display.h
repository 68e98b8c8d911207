// The X11 display: whether a window can be opened at all.
#pragma once

namespace KivoViewer {

/// Makes Qt use X11. Throws a Failure that says what to do where that cannot work: Qt itself would end the
/// program. To be called before QApplication is made.
void ChooseDisplay();

} // namespace KivoViewer
