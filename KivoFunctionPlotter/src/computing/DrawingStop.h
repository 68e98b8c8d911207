// Whether what takes long to draw is still wanted.
#pragma once

namespace KivoDrawingTools {

/// Asks a host, between parts of what takes long, whether to leave the rest; one yes holds.
class DrawingStop {
public:
    DrawingStop(bool (*isWanted)(void*), void* context) : m_ask(isWanted), m_context(context) {}

    /// Asks, unless the answer is known.
    bool IsWanted() {
        m_isWanted = m_isWanted || m_ask(m_context);
        return m_isWanted;
    }
    /// The last answer.
    bool WasWanted() const { return m_isWanted; }

private:
    bool (*m_ask)(void*);
    void* m_context;
    bool m_isWanted = false;
};

/// Whether to leave the rest; not where nobody is to be asked.
inline bool IsStopped(DrawingStop* stop) {
    return stop && stop->IsWanted();
}

} // namespace KivoDrawingTools
