// kivo-viewer: shows a surface z = f(x, y) in a window, or draws it into a file.
#include "Background.h"
#include "Content.h"
#include "Failure.h"
#include "FileText.h"
#include "FormatList.h"
#include "GridReader.h"
#include "Language.h"
#include "MainWindow.h"
#include "Options.h"
#include "Picture.h"
#include "PictureFile.h"
#include "PictureMode.h"
#include "Preferences.h"
#include "ProfileMode.h"
#include "Sample.h"
#include "Session.h"
#include "SettingTable.h"
#include "StartOfQt.h"
#include "UserLanguage.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <future>
#include <new>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

using namespace KivoViewer;

// Has the heap keep what large grids and their frames take again and again: fresh memory comes page by page.
void KeepFreedMemory() {
#if defined(__GLIBC__)
    constexpr int megabyte = 1 << 20;
    mallopt(M_TRIM_THRESHOLD, 256 * megabyte);
    if (mallopt(M_MMAP_THRESHOLD, 256 * megabyte) == 0)
        mallopt(M_MMAP_THRESHOLD, 32 * megabyte); // the most that some versions take
#endif
}

// What the command line does not set is as it was in the last window.
Options WithRememberedSettings(Options options) {
    if (options.session) return options;
    PlotSettings settings = RememberedSettings();
    settings.mode = options.settings.mode;
    for (const std::string& name : options.settingNames)
        Copy(FindSetting(name), options.settings, settings);
    options.settings = settings;
    return options;
}

// Whether reading it takes a tenth of a second or so.
bool IsLarge(const std::string& path) {
    constexpr std::uintmax_t many = 10'000'000;
    std::error_code unknown; // of what is no file
    const std::uintmax_t size = std::filesystem::file_size(path, unknown);
    return !unknown && size >= many;
}

// Whether reading it takes as long as somebody else takes to write it.
bool IsAwaited(const std::string& path) {
    std::error_code unknown;
    return path == standardInput || std::filesystem::is_fifo(path, unknown);
}

bool TakesTime(const std::string& path) {
    return IsLarge(path) || IsAwaited(path);
}

void TellNotes(const Content& content) {
    const auto tell = [](const GridData& grid) {
        if (!grid.note.empty())
            std::fprintf(stderr, "kivo-viewer: %s\n", OneLine(grid.title + ": " + grid.note).c_str());
    };
    tell(content.grid);
    std::for_each(content.surfaces.begin(), content.surfaces.end(), tell);
}

// There is no window yet: a dialog tells that something is read, and ends it.
// @param path  of the file that takes time
Content LoadBesideDialog(const std::string& path, const Options& options) {
    const QString name = QFileInfo(QFile::decodeName(path.c_str())).fileName();
    return MakeInBackground<Content>(
        nullptr, QCoreApplication::translate("WindowReading", "Reading %1...").arg(name),
        [options](const Progress& progress) { return LoadContent(options, ReadSample, progress); });
}

int RunWindow(char* program, const Options& options) {
    std::optional<Content> content;
    const auto slow = std::find_if(options.files.begin(), options.files.end(), TakesTime);
    const bool isQuick = slow == options.files.end();
    if (isQuick) content = LoadContent(options, ReadSample); // what is wrong is told without a display
    std::optional<StartOfQt> start(std::in_place);
    int count = 1;
    char* arguments[] = {program, nullptr}; // the command line is not Qt's
    QApplication application(count, arguments);
    start.reset();
    TranslateWindow();
    // What Qt for X11 has set: of moves that wait it leaves out all but the last, whatever keys go down
    // between them. The plot joins them by itself, and gets the whole way.
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    std::setlocale(LC_NUMERIC, "C"); // the plot's numbers are the same everywhere
    try {
        if (!isQuick) content = LoadBesideDialog(*slow, options);
    } catch (const Cancelled&) {
        return 0;
    }
    TellNotes(*content);
    for (const std::string& file : options.files)
        if (!file.empty() && file != standardInput) RememberFile(QFile::decodeName(file.c_str()));
    MainWindow window(*content, WithRememberedSettings(options));
    content.reset(); // the window has its own
    window.show();
    return QApplication::exec();
}

// One thread at a time is at the driver: it is loaded when this returns.
Content LoadWithDriver(const Options& options) {
    const bool isLarge = std::any_of(options.files.begin(), options.files.end(), IsLarge);
    const std::future<void> driver = isLarge && !options.picture.empty() ? LoadDriver() : std::future<void>();
    Content content = LoadContent(options, ReadSample);
    if (driver.valid()) driver.wait();
    return content;
}

int Run(int argc, char** argv) {
    Options options = ParseOptions(argc, argv);
    if (!options.information.empty()) {
        std::printf("%s\n", options.information.c_str());
        return 0;
    }
    if (options.listsFormats) {
        std::fputs(FormatList().c_str(), stdout);
        return 0;
    }
    if (!options.picture.empty()) CheckPictureName(options.picture, options.format.isTransparent);
    if (!options.sessionFile.empty()) {
        Session session = ReadSessionFile(options.sessionFile);
        options = WithSession(std::move(options), std::move(session));
    }
    if (!options.profileTable.empty()) CheckProfileLine(options);
    if (options.picture.empty() && options.profileTable.empty()) return RunWindow(argv[0], options);
    const Content content = LoadWithDriver(options);
    TellNotes(content);
    if (!options.profileTable.empty()) WriteTextFile(options.profileTable, ProfileText(content, options));
    if (!options.picture.empty()) WritePicture(content, options);
    return 0;
}

int Complain(const std::string& reason) {
    std::fprintf(stderr, "kivo-viewer: %s\n", OneLine(reason).c_str());
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    KeepFreedMemory();
    try {
        SpeakLanguage(LanguageIn(argc, argv));
        const int status = Run(argc, argv);
        std::fflush(stdout);
        if (IsWorkGoingOn()) std::_Exit(status);
        return status;
    } catch (const std::bad_alloc&) {
        return Complain(Translate("Start", "not enough memory"));
    } catch (const std::exception& error) {
        return Complain(error.what());
    }
}
