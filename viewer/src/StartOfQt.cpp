#include "StartOfQt.h"

#include "Failure.h"
#include "Language.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace KivoViewer {

namespace {

constexpr int exitOfFailures = 2;

std::string heard; // by the handler, which has no other way to keep anything

// Qt has tried the display of the session that it takes this for.
std::string NameOfDisplay() {
    const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
    return (wayland.isEmpty() ? qgetenv("DISPLAY") : wayland).toStdString();
}

std::string ReasonOf(const QString& lastWords) {
    if (!lastWords.contains("platform plugin")) return lastWords.toStdString();
    const std::string platform = qgetenv("QT_QPA_PLATFORM").toStdString();
    if (heard.find("Could not find the Qt platform plugin") != std::string::npos)
        return platform.empty()
                   ? Translate("Start",
                               "Qt's plugin for this display is missing; install qt6-wayland, for X11 "
                               "qt6-qpa-plugins")
                   : Filled(Translate("Start", "Qt has no plugin for QT_QPA_PLATFORM=%1; unset it"),
                            platform);
    const std::string display = NameOfDisplay();
    return display.empty()
               ? Translate("Start", "no display; set DISPLAY or use --picture FILE.png")
               : Filled(Translate("Start", "cannot open display %1; set DISPLAY or use --picture FILE.png"),
                        display);
}

void Hear(QtMsgType type, const QMessageLogContext&, const QString& words) {
    if (type != QtFatalMsg) {
        heard += words.toStdString() + '\n';
        return;
    }
    std::fprintf(stderr, "kivo-viewer: %s\n", OneLine(ReasonOf(words)).c_str());
    std::_Exit(exitOfFailures);
}

} // namespace

StartOfQt::StartOfQt() {
    qInstallMessageHandler(Hear);
}

StartOfQt::~StartOfQt() {
    qInstallMessageHandler(nullptr);
    std::fputs(heard.c_str(), stderr);
    heard.clear();
}

} // namespace KivoViewer
