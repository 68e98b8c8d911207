#include "Home.h"

#include <stdexcept>
#include <utility>

namespace KivoPython {

namespace {

thread_local const Home* locked = nullptr;

} // namespace

std::shared_ptr<Home> Home::OfThisThread() {
    thread_local const auto home = std::make_shared<Home>();
    return home;
}

void Home::Destroy(std::unique_ptr<Resident> resident) {
    {
        const std::lock_guard<std::mutex> guard(m_leftMutex);
        m_left.push_back(std::move(resident));
    }
    DestroyThoseLeft();
}

// Whoever has the home locked meanwhile comes here after unlocking it.
void Home::DestroyThoseLeft() {
    while (HasThoseLeft()) {
        const std::unique_lock<std::recursive_mutex> lock(m_mutex, std::try_to_lock);
        if (!lock) return;
        std::vector<std::unique_ptr<Resident>> left;
        {
            const std::lock_guard<std::mutex> guard(m_leftMutex);
            left.swap(m_left);
        }
    }
}

bool Home::HasThoseLeft() {
    const std::lock_guard<std::mutex> guard(m_leftMutex);
    return !m_left.empty();
}

HomeLock::HomeLock(const std::shared_ptr<Home>& home) : m_home(home), m_before(locked) {
    if (m_before && m_before != home.get())
        throw std::runtime_error("a function that a plot calls cannot use a plot of another thread");
    home->m_mutex.lock();
    locked = home.get();
}

HomeLock::~HomeLock() {
    locked = m_before;
    m_home->m_mutex.unlock();
    if (!m_before) m_home->DestroyThoseLeft();
}

} // namespace KivoPython
