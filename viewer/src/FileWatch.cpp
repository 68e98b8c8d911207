#include "FileWatch.h"

#include <QDateTime>
#include <QFileInfo>

#include <utility>

namespace KivoViewer {

FileWatch::FileWatch(QObject* parent, std::function<void()> changed)
    : QObject(parent), m_changed(std::move(changed)) {
    constexpr int milliseconds = 250; // in which a writer that writes on begins anew
    m_pause.setSingleShot(true);
    m_pause.setInterval(milliseconds);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] { m_pause.start(); });
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { m_pause.start(); });
    connect(&m_pause, &QTimer::timeout, this, &FileWatch::Look);
}

void FileWatch::Expect(const QStringList& paths) {
    for (const QString& path : paths)
        m_expected.insert(path, StateOf(path));
}

void FileWatch::Watch(const QStringList& paths) {
    if (!m_watcher.files().isEmpty()) m_watcher.removePaths(m_watcher.files());
    if (!m_watcher.directories().isEmpty()) m_watcher.removePaths(m_watcher.directories());
    m_pause.stop();
    QHash<QString, State> known;
    for (const State& state : std::as_const(m_states))
        known.insert(state.path, state);
    known.insert(m_expected);
    m_expected.clear();
    m_states.clear();
    for (const QString& path : paths) {
        const State now = StateOf(path);
        m_states.append(known.value(path, now));
        m_watcher.addPath(path);
        m_watcher.addPath(QFileInfo(path).absolutePath());
        if (m_states.last().Differs(now)) m_pause.start();
    }
}

FileWatch::State FileWatch::StateOf(const QString& path) {
    const QFileInfo file(path);
    return {path, file.size(), file.lastModified().toMSecsSinceEpoch()};
}

// A folder changes with every file in it, and what is gone may come back.
void FileWatch::Look() {
    bool hasChanged = false;
    QStringList paths;
    QList<State> states;
    for (const State& before : std::as_const(m_states)) {
        if (!QFileInfo::exists(before.path)) return;
        states.append(StateOf(before.path));
        hasChanged |= states.last().Differs(before);
        paths.append(before.path);
    }
    m_states = states;
    Watch(paths); // a file that was replaced is another one to the system
    if (hasChanged) m_changed();
}

} // namespace KivoViewer
