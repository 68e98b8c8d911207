// What one thread starts and another one does.
#pragma once

#include "KivoPicture.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace KivoDrawingTools {

/// One job at a time. All but Run is for the thread that starts jobs; what a job writes is that thread's
/// again once End or TakeDone has told that it is done.
class ThreadedJob {
public:
    using Job = std::function<void(const SKivoStopRequest& stop)>; ///< throws nothing

    /// Only while there is none.
    void Start(Job job);
    /// In the other thread: does the job, where one waits.
    void Run();
    bool IsIdle() const;
    /// @return whether one has been done; there is none any more then
    bool TakeDone();
    /// Sees to it that there is none: one that waits is dropped, one that goes on is waited for.
    /// @param isStopped  whether that one is asked to leave the rest
    /// @return whether it has been done, or begun
    bool End(bool isStopped);

private:
    enum class State { idle, waiting, running, done };

    mutable std::mutex m_mutex;
    std::condition_variable m_hasEnded;
    State m_state = State::idle;
    Job m_job;
    std::atomic<bool> m_isUnwanted = false;
};

} // namespace KivoDrawingTools
