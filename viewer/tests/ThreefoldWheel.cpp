// Loaded into a program with Qt before everything else: it is told of three steps of the wheel where there
// was one, in one event.
#include <QCoreApplication>
#include <QObject>
#include <QWheelEvent>

namespace {

class ThreefoldWheel : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::Wheel || m_isSending) return false;
        const auto& turn = *static_cast<const QWheelEvent*>(event);
        QWheelEvent more(turn.position(), turn.globalPosition(), 3 * turn.pixelDelta(), 3 * turn.angleDelta(),
                         turn.buttons(), turn.modifiers(), turn.phase(), turn.inverted(), turn.source(),
                         turn.pointingDevice());
        m_isSending = true;
        QCoreApplication::sendEvent(receiver, &more);
        m_isSending = false;
        return true;
    }

private:
    bool m_isSending = false;
};

void Install() {
    qApp->installEventFilter(new ThreefoldWheel(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
