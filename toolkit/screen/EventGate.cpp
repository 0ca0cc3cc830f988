#include "EventGate.h"

#include "Application.h"
#include "Exceptions.h"
#include "MsgBox.h"

#include <utility>

namespace folimark {
namespace {

enum class Phase { Starting, Running };

/// Is an exception being told of after which memory can't be trusted?
bool closed = false;
/// How many events are being handled, each in a yield or a dialog of the one before.
int depth = 0;
/// How many objects hold the user's input back.
int holds = 0;

/// \returns whether the application has dealt with it.
bool Tell(const RuntimeException& error) {
    Application* const application = CurrentApplication();
    if (application == nullptr) { // It comes from the start, before there is one.
        MsgBox(error.ClassName() + ": " + error.Message());
        return false;
    }
    return application->Event_UnhandledException(&error);
}

void LastResort(const RuntimeException& error, Phase phase) {
    const auto* const failed = dynamic_cast<const IOException*>(&error);
    bool goesOn = failed != nullptr && (phase == Phase::Running || failed->IsOfSaving());
    const bool wasClosed = std::exchange(closed, !goesOn);
    try {
        goesOn = Tell(error) || goesOn;
        if (failed != nullptr) {
            MsgBox(error.Message());
        }
    } catch (...) { // A handler of last resort that fails has nobody left to tell.
        goesOn = false;
    }
    closed = wasClosed;
    if (!goesOn) {
        Quit(1);
    }
}

void Guarded(const std::function<void()>& handler, Phase phase) {
    ++depth;
    try {
        try {
            handler();
        } catch (const EndException&) { // NOLINT(bugprone-empty-catch): ending quietly is what it is for
        } catch (const RuntimeException& error) {
            LastResort(error, phase);
        } catch (const std::exception& error) {
            LastResort(ForeignException(error), phase);
        }
    } catch (...) { // Not even words for it are left.
        Quit(1);
    }
    --depth;
}

} // namespace

void EnterApplication(const std::function<void()>& handler) {
    if (!IsQuitting() && !closed) {
        Guarded(handler, Phase::Running);
    }
}

void EnterToPaint(const std::function<void()>& handler) {
    if (!closed) {
        EnterApplication(handler);
        return;
    }
    try {
        handler();
    } catch (...) { // NOLINT(bugprone-empty-catch): a cell without its colour is all that is lost
    }
}

void StartApplication(const std::function<void()>& start) {
    Guarded(start, Phase::Starting);
}

bool IsHandlingEvent() {
    return depth > 0;
}

void LetEventsIn(const std::function<void()>& loop) {
    loop();
    if (IsQuitting()) {
        throw EndException();
    }
}

InputHold::InputHold() {
    ++holds;
}

InputHold::~InputHold() {
    --holds;
}

bool IsInputHeld() {
    return holds > 0;
}

} // namespace folimark
