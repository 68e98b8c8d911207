// Tells when files have changed.
#pragma once

#include <QFileSystemWatcher>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace KivoViewer {

/// Watches files and their folders: many programs write another file and give it the name.
class FileWatch : public QObject {
public:
    /// @param changed  called once a file has changed and then was left alone for a moment
    FileWatch(QObject* parent, std::function<void()> changed);

    /// Watches these files in place of others.
    void Watch(const QStringList& paths);

private:
    struct State {
        QString path;
        qint64 size;
        qint64 modified; ///< in milliseconds
    };

    static State StateOf(const QString& path);
    void Look();

    std::function<void()> m_changed;
    QFileSystemWatcher m_watcher;
    QTimer m_pause;
    QList<State> m_states; ///< of the files, when they were read
};

} // namespace KivoViewer
