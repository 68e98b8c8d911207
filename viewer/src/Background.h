// Long work in a thread of its own, while the window is drawn and answers.
#pragma once

#include "Progress.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QString;
class QWidget;

namespace KivoViewer {

/// Does something in another thread and returns when it is done. Where that takes long, a dialog tells how
/// far it is, and ends the waiting at once: throws Cancelled then, and what is done ends by itself when it
/// reports next. Throws what the action throws. To be called in the thread of the windows.
/// @param parent  whose window is kept from input; null: there is none yet
/// @param words   for the dialog
/// @param action  owns all that it uses: it may go on when nobody waits for it any more. Asks nobody.
void RunInBackground(QWidget* parent, const QString& words, std::function<void(const Progress&)> action);

/// The same with what has to be done to its end: returns or throws after that, and nobody can end it.
void RunToTheEnd(QWidget* parent, const QString& words, const std::function<void()>& action);

/// RunInBackground with a result.
template <class Result>
Result MakeInBackground(QWidget* parent, const QString& words,
                        std::function<Result(const Progress&)> action) {
    const auto result = std::make_shared<std::optional<Result>>();
    RunInBackground(parent, words, [result, action = std::move(action)](const Progress& progress) {
        result->emplace(action(progress));
    });
    return std::move(**result);
}

/// Whether somebody waits in one of these. What comes meanwhile, and reads files too, is better put off.
bool IsWaitingForBackground();

/// Whether something that nobody waits for has not ended yet. The program then ends without waiting for it,
/// and without destroying what it may use.
bool IsWorkGoingOn();

} // namespace KivoViewer
