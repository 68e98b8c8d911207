// Loaded into a program with Qt before everything else: the key F12 gives it the palette of a dark desktop,
// and takes that back.
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QObject>
#include <QPalette>

namespace {

class PaletteKey : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !receiver->isWindowType()) return false;
        if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_F12) return false;
        m_isDark = !m_isDark;
        QGuiApplication::setPalette(m_isDark ? QPalette(QColor(50, 50, 50)) : QPalette());
        return true;
    }

private:
    bool m_isDark = false;
};

void Install() {
    qApp->installEventFilter(new PaletteKey(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
