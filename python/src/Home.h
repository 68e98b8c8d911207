// Which calls exclude each other. The library is used by one thread at a time for each of its windows, and
// windows of a thread share a connection; Python threads call whatever they have a reference to.
#pragma once

#include <memory>
#include <mutex>
#include <vector>

namespace KivoPython {

/// Something that must be destroyed while its home is locked.
struct Resident {
    Resident() = default;
    Resident(const Resident&) = delete;
    Resident& operator=(const Resident&) = delete;
    virtual ~Resident() = default;
};

/// The thread that windows and plotters were made in, for as long as any of them is there. Whoever uses one
/// of them locks its home, from whichever thread, and never while it holds Python's own lock: those who draw
/// ask Python for words.
class Home {
public:
    static std::shared_ptr<Home> OfThisThread();

    /// Destroys a resident now, or where another thread is at work here, leaves that to it. Never waits:
    /// garbage is collected anywhere.
    void Destroy(std::unique_ptr<Resident> resident);

private:
    friend class HomeLock;

    void DestroyThoseLeft();
    bool HasThoseLeft();

    std::recursive_mutex m_mutex;
    std::mutex m_leftMutex;
    std::vector<std::unique_ptr<Resident>> m_left;
};

/// Locks a home for its scope; without Python's lock. A thread has one home locked at a time, again and again
/// if need be: two threads that lock each other's would wait for ever.
class HomeLock {
public:
    /// Throws a std::runtime_error where the thread has another home locked, as it has within a function of
    /// the user's that a plot calls.
    explicit HomeLock(const std::shared_ptr<Home>& home);
    ~HomeLock();
    HomeLock(const HomeLock&) = delete;
    HomeLock& operator=(const HomeLock&) = delete;

private:
    std::shared_ptr<Home> m_home;
    const Home* m_before;
};

} // namespace KivoPython
