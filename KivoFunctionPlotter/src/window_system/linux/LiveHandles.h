// Which handles are alive, so that an operation refuses a stale or foreign one instead of following it.
#pragma once

#include <mutex>
#include <unordered_set>

namespace KivoDrawingTools {

/// The live objects of one kind, from all threads.
template <typename T>
class LiveHandles {
public:
    void Add(const T* handle) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_handles.insert(handle);
    }
    void Remove(const T* handle) {
        const std::lock_guard<std::mutex> guard(m_mutex);
        m_handles.erase(handle);
    }
    bool Contains(const T* handle) const {
        const std::lock_guard<std::mutex> guard(m_mutex);
        return m_handles.count(handle) != 0;
    }

private:
    mutable std::mutex m_mutex;
    std::unordered_set<const T*> m_handles;
};

/// The register of one kind. It is never destroyed: a host's static objects may release their handles late.
template <typename T>
LiveHandles<T>& Live() {
    static auto* const handles = new LiveHandles<T>;
    return *handles;
}

} // namespace KivoDrawingTools
