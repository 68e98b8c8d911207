// Loaded into a program with Qt before everything else: asks its event loop again and again for an answer and
// writes into the file that KIVO_ANSWERS names when it has asked, by the steady clock, and how long the
// answer took, both in milliseconds.
#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Never destroyed: the thread goes on until the program ends.
class AnswerWatch : public QObject {
public:
    void Watch(std::FILE* file) {
        while (true) {
            const Clock::time_point begin = Clock::now();
            QMetaObject::invokeMethod(
                this, [this] { Answer(); }, Qt::QueuedConnection);
            {
                std::unique_lock<std::mutex> lock(m_mutex);
                m_answered.wait(lock, [this] { return m_isAnswered; });
                m_isAnswered = false;
            }
            std::fprintf(file, "%.3f %.3f\n", Milliseconds(begin.time_since_epoch()),
                         Milliseconds(Clock::now() - begin));
            std::fflush(file);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

private:
    void Answer() {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_isAnswered = true;
        m_answered.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_answered;
    bool m_isAnswered = false;
};

void Install() {
    const char* const path = std::getenv("KIVO_ANSWERS");
    std::FILE* const file = path ? std::fopen(path, "w") : nullptr;
    if (!file) return;
    auto* const watch = new AnswerWatch;
    std::thread([=] { watch->Watch(file); }).detach();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
