#include "Preferences.h"

#include "Failure.h"
#include "SettingTable.h"

#include <QFileInfo>
#include <QSettings>

namespace KivoViewer {

namespace {

constexpr int maxRecentFiles = 8;
const char* const recentKey = "recent-files";

// The store as the desktop keeps it for this user.
struct Store : QSettings {
    Store() : QSettings("KivoFunctionPlotter", "kivo-viewer") {}
};

QString KeyOf(const Setting& setting) {
    return "plot/" + QString::fromStdString(setting.name);
}

} // namespace

PlotSettings RememberedSettings() {
    const Store store;
    PlotSettings settings;
    for (const Setting& setting : AllSettings()) {
        if (setting.isOfData || !store.contains(KeyOf(setting))) continue;
        try {
            SetFromText(setting, store.value(KeyOf(setting)).toString().toStdString(), settings);
        } catch (const Failure&) {
            continue; // somebody else has written it
        }
    }
    return settings;
}

void RememberSettings(const PlotSettings& settings) {
    Store store;
    for (const Setting& setting : AllSettings()) {
        const bool isUsual = TextOf(setting, settings) == TextOf(setting, PlotSettings());
        if (setting.isOfData || isUsual)
            store.remove(KeyOf(setting));
        else
            store.setValue(KeyOf(setting), QString::fromStdString(TextOf(setting, settings)));
    }
}

QStringList RecentFiles() {
    QStringList files;
    for (const QString& path : Store().value(recentKey).toStringList())
        if (QFileInfo::exists(path)) files.append(path);
    return files;
}

void RememberFile(const QString& path) {
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList files = RecentFiles();
    files.removeAll(full);
    files.prepend(full);
    Store().setValue(recentKey, files.mid(0, maxRecentFiles));
}

WindowState RememberedWindow() {
    const Store store;
    return {store.value("window/geometry").toByteArray(), store.value("window/panels").toByteArray()};
}

void RememberWindow(const WindowState& state) {
    Store store;
    store.setValue("window/geometry", state.geometry);
    store.setValue("window/panels", state.panels);
}

} // namespace KivoViewer
