// The X11 display: whether a window can be opened at all, and how large texts are there.
#pragma once

namespace KivoViewer {

/// Makes Qt use X11. Throws a Failure that says what to do where that cannot work: Qt itself would end the
/// program. To be called before QApplication is made.
void ChooseDisplay();

/// Dots per inch that the plotter sizes the texts of a window for: the display's setting Xft.dpi.
int TextResolution(unsigned long window);

} // namespace KivoViewer
