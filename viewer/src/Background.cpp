#include "Background.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <exception>
#include <optional>

namespace KivoViewer {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 400ms; // without a dialog: one that comes and goes is in the way

// What both threads know of it.
struct Work {
    std::function<void(const Progress&)> action;
    std::exception_ptr failure; // before it is done
    std::atomic<double> share = 0.0;
    std::atomic<bool> isDone = false;
    std::atomic<bool> isUnwanted = false;

    void Do() {
        try {
            action([this](double done) {
                share = done;
                return !isUnwanted;
            });
        } catch (...) {
            failure = std::current_exception();
        }
        action = {}; // with all that nobody waits for
        isDone = true;
    }
};

// A window stays as long as something is done for it.
class CloseRefusal : public QObject {
public:
    explicit CloseRefusal(QWidget* window) { window->installEventFilter(this); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool closes =
            event->type() == QEvent::Close || (event->type() == QEvent::KeyPress && // of a dialog
                                               static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel));
        if (!closes) return QObject::eventFilter(object, event);
        event->ignore();
        return true;
    }
};

// A bar that stands still says nothing of work that reports nothing for a while: it shows that it goes on.
class ShareBar {
public:
    explicit ShareBar(QProgressBar& bar) : m_bar(bar) { Show(0.0); }

    void Show(double share) {
        constexpr int steps = 1000, manyTimes = 15;
        m_timesSame = share == m_share ? m_timesSame + 1 : 0;
        m_share = share;
        m_bar.setRange(0, m_timesSame < manyTimes ? steps : 0);
        m_bar.setValue(static_cast<int>(share * steps));
    }

private:
    QProgressBar& m_bar;
    double m_share = 0.0;
    int m_timesSame = 0;
};

void WaitWithDialog(QWidget* parent, const QString& words, bool mayEnd, QEventLoop& loop, const Work& work) {
    QProgressDialog dialog(QString(), QCoreApplication::translate("Background", "Cancel"), 0, 1, parent);
    std::optional<CloseRefusal> refusal;
    if (!mayEnd) {
        dialog.setCancelButton(nullptr);
        refusal.emplace(&dialog);
    }
    dialog.setWindowTitle("Kivo Viewer");
    auto* const label = new QLabel(words);
    label->setTextFormat(Qt::PlainText); // of names of files
    dialog.setLabel(label);
    dialog.setWindowModality(Qt::WindowModal);
    auto* const bar = new QProgressBar;
    dialog.setBar(bar); // setValue of the dialog itself would handle events
    QObject::connect(&dialog, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    ShareBar shown(*bar);
    QTimer ticks;
    ticks.callOnTimeout([&] { shown.Show(work.share); });
    ticks.start(50ms);
    dialog.show();
    loop.exec();
}

std::atomic<int> worksGoingOn = 0;

int waits = 0; // of the windows' thread, one in the other

class WaitScope {
public:
    WaitScope() { ++waits; }
    ~WaitScope() { --waits; }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;
};

} // namespace

bool IsWaitingForBackground() {
    return waits > 0;
}

bool IsWorkGoingOn() {
    return worksGoingOn > 0;
}

namespace {

// Does it in another thread and waits; throws what it throws.
// @param mayEnd  whether the waiting may end before it is done
// @return whether it is done
bool Await(QWidget* parent, const QString& words, bool mayEnd, const std::shared_ptr<Work>& work) {
    std::optional<CloseRefusal> refusal;
    if (parent) refusal.emplace(parent->window());
    const WaitScope scope;
    QEventLoop loop;
    QThread* const thread = QThread::create([work] {
        ++worksGoingOn;
        work->Do();
        --worksGoingOn;
    });
    QObject::connect(thread, &QThread::finished, &loop, &QEventLoop::quit);
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
    if (!thread->isRunning() && !work->isDone) work->Do(); // there is no thread to be had
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    if (!work->isDone) loop.exec(QEventLoop::ExcludeUserInputEvents); // which wait until they are due
    if (!work->isDone) WaitWithDialog(parent, words, mayEnd, loop, *work);
    if (!mayEnd && !work->isDone) thread->wait(); // where the program is to end
    const bool isDone = work->isDone;
    if (isDone && work->failure) std::rethrow_exception(work->failure);
    return isDone;
}

} // namespace

void RunInBackground(QWidget* parent, const QString& words, std::function<void(const Progress&)> action) {
    const auto work = std::make_shared<Work>();
    work->action = std::move(action);
    if (Await(parent, words, true, work)) return;
    work->isUnwanted = true;
    throw Cancelled();
}

void RunToTheEnd(QWidget* parent, const QString& words, const std::function<void()>& action) {
    const auto work = std::make_shared<Work>();
    work->action = [&action](const Progress&) { action(); };
    try {
        Await(parent, words, false, work);
    } catch (...) {
        while (!work->isDone) // where there was no memory for the dialog
            QThread::msleep(1);
        throw;
    }
}

} // namespace KivoViewer
