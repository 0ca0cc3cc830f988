#include "EventGate.h"

#include "Application.h"
#include "Exceptions.h"
#include "FolderItem.h"

#include <new>

namespace folimark {
namespace {

enum class Phase { Starting, Running };

void LastResort(const RuntimeException& error, Phase phase) {
    bool handled = false;
    try {
        if (Application* application = CurrentApplication()) {
            handled = application->Event_UnhandledException(&error);
        }
        if (!handled && phase == Phase::Running && dynamic_cast<const IOException*>(&error) != nullptr) {
            MsgBox(error.Message());
            return;
        }
    } catch (...) { // A handler of last resort that fails has nobody left to tell.
        handled = false;
    }
    if (!handled) {
        Quit(1);
    }
}

void Guarded(const std::function<void()>& handler, Phase phase) {
    try {
        handler();
    } catch (const EndException&) { // NOLINT(bugprone-empty-catch): ending quietly is what it is for
    } catch (const RuntimeException& error) {
        LastResort(error, phase);
    } catch (const std::exception& error) {
        LastResort(ForeignException(error), phase);
    }
    DropFolderCache();
}

} // namespace

void EnterApplication(const std::function<void()>& handler) {
    if (!IsQuitting()) {
        Guarded(handler, Phase::Running);
    }
}

void StartApplication(const std::function<void()>& start) {
    Guarded(start, Phase::Starting);
}

} // namespace folimark
