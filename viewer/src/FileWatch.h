// Tells when files have changed.
#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace KivoViewer {

/// Watches files and their folders: many programs write another file and give it the name.
class FileWatch : public QObject {
public:
    /// @param changed  called once a file has changed and then was left alone for a moment
    FileWatch(QObject* parent, std::function<void()> changed);

    /// These files are going to be read: what changes from now on is another state than the one that is read.
    void Expect(const QStringList& paths);

    /// Watches these files in place of others, for other states than those in which they were expected, or
    /// are watched already; else than now.
    void Watch(const QStringList& paths);

private:
    struct State {
        QString path;
        qint64 size;
        qint64 modified; ///< in milliseconds

        bool Differs(const State& other) const { return size != other.size || modified != other.modified; }
    };

    static State StateOf(const QString& path);
    void Look();

    std::function<void()> m_changed;
    QFileSystemWatcher m_watcher;
    QTimer m_pause;
    QList<State> m_states;            ///< of the files, when they were read
    QHash<QString, State> m_expected; ///< of files that are being read
};

} // namespace KivoViewer
