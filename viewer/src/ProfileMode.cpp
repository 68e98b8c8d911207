#include "ProfileMode.h"

#include "Failure.h"
#include "Language.h"
#include "PictureFile.h"
#include "PlotScene.h"
#include "Profile.h"
#include "Session.h"

#include <QFile>
#include <QSaveFile>

#include <cstddef>

namespace KivoViewer {

namespace {

// As ShowContent and ShowSession show it.
bool IsSeen(const Options& options, std::size_t index) {
    if (options.session && index < options.session->surfaces.size()) {
        const SurfaceEntry& saved = options.session->surfaces[index];
        return saved.isShown && saved.looks.opacity > 0.0;
    }
    return options.looks[index].opacity > 0.0;
}

} // namespace

void CheckProfileLine(const Options& options) {
    if (!options.profile)
        throw Failure(Filled(Translate("CommandLine", "%1 requires %2"), "--profile-csv", "--profile"));
}

std::string ProfileText(const Content& content, const Options& options) {
    std::vector<SurfaceHeights> heights;
    if (!content.grid.isBox && IsSeen(options, 0)) heights.push_back(HeightsOf(content.grid));
    for (std::size_t i = 0; i < content.surfaces.size(); ++i)
        if (IsSeen(options, i + 1)) heights.push_back(HeightsOf(content.surfaces[i]));
    if (heights.empty()) throw Failure("--profile: " + Translate("CommandLine", "there is no surface"));
    return ProfileTable(FollowLine(heights, *options.profile));
}

void WriteTextFile(const std::string& path, const std::string& text) {
    const QByteArray bytes = QByteArray::fromStdString(text);
    if (path == standardOutput) {
        QFile output;
        if (output.open(stdout, QIODevice::WriteOnly) && output.write(bytes) == bytes.size() &&
            output.flush())
            return;
        throw Failure(
            Translate("Pictures", "standard output") + ": " +
            Filled(Translate("Pictures", "cannot write it: %1"), output.errorString().toStdString()));
    }
    QSaveFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw Failure(path + ": " +
                      Filled(Translate("Pictures", "cannot write it: %1"), file.errorString().toStdString()));
}

} // namespace KivoViewer
