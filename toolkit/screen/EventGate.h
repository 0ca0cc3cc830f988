#pragma once

#include <functional>

namespace folimark {

/// The one way by which events enter the application. It runs `handler` and catches whatever leaves
/// it: an EndException ends the event quietly, anything else goes to the application's handler of last
/// resort, once. Then the application ends with exit status 1, since what is in memory can't be trusted any
/// more; only failed input or output in a command (IOException) lets it go on. No event enters any more while
/// that handler tells of such an exception, nor once the application is ending.
void EnterApplication(const std::function<void()>& handler);

/// Runs a handler that only paints. It enters also while the handler of last resort tells of an exception, so
/// that windows don't go blank meanwhile; what it raises then is passed over.
void EnterToPaint(const std::function<void()>& handler);

/// Runs `start`, the application's first event, like any other, but for one thing: a failed input ends the
/// application too, so that it never works with half of what it should have read.
void StartApplication(const std::function<void()>& start);

/// Is an event being handled, be it the one that the caller is part of?
bool IsHandlingEvent();

/// Runs a loop of the window system's in the middle of an event's handler: a yield, a dialog. The one door
/// for whatever events that lets in. Raises EndException behind the loop if the application is ending then.
void LetEventsIn(const std::function<void()>& loop);

/// While one lives, no yield lets in keys and clicks. They wait, and come in their order: for handlers that
/// prepare what the user already sees coming, and types at.
class InputHold {
  public:
    InputHold();
    InputHold(const InputHold&) = delete;
    InputHold& operator=(const InputHold&) = delete;
    ~InputHold();
};
bool IsInputHeld();

} // namespace folimark
