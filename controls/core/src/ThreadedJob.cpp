#include "ThreadedJob.h"

#include <utility>

namespace KivoDrawingTools {

void ThreadedJob::Start(Job job) {
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_job = std::move(job);
    m_isUnwanted = false;
    m_state = State::waiting;
}

void ThreadedJob::Run() {
    {
        const std::lock_guard<std::mutex> guard(m_mutex);
        if (m_state != State::waiting) return;
        m_state = State::running;
    }
    m_job({[](void* isUnwanted) { return static_cast<std::atomic<bool>*>(isUnwanted)->load(); },
           &m_isUnwanted});
    const std::lock_guard<std::mutex> guard(m_mutex);
    m_state = State::done;
    m_hasEnded.notify_all(); // within the lock: who waits may destroy this
}

bool ThreadedJob::IsIdle() const {
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_state == State::idle;
}

bool ThreadedJob::TakeDone() {
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (m_state != State::done) return false;
    m_state = State::idle;
    return true;
}

bool ThreadedJob::End(bool isStopped) {
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_state == State::running) {
        m_isUnwanted = isStopped;
        m_hasEnded.wait(lock, [this] { return m_state != State::running; });
    }
    return std::exchange(m_state, State::idle) == State::done;
}

} // namespace KivoDrawingTools
