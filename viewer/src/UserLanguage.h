// The language of the program: the command line's, or the desktop's.
#pragma once

#include <string>

namespace KivoViewer {

/// Has all texts in a language from now on. To be called before the first of them is needed.
/// @param wanted  two letters, or empty: the first of the desktop's languages that the program has, or
/// English Throws a Failure for one that it does not have.
void SpeakLanguage(const std::string& wanted);

/// Has the window's texts in that language, too, and Qt's own where they are installed. To be called once
/// there is an application.
void TranslateWindow();

} // namespace KivoViewer
