// What a plot is to readers of the screen.
#pragma once

#include <wx/window.h>

/// Names a window that is there, and describes it as a plot. wxWidgets hands names to the system on Windows
/// alone: elsewhere this takes GTK 3 below it, and does nothing without.
void NameForReaders(wxWindow& window, const wxString& name);
