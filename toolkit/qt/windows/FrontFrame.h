#pragma once

class QWidget;

namespace folimark {

/// The window that the user is looking at: the one that has the keyboard or, if another application has it,
/// the one of ours that had it last. Null if there is none.
QWidget* FrontFrame();
/// The window of ours that had the keyboard last.
QWidget* FrontFrameBefore();
/// To be told of each window that gets the keyboard.
void NoteFrontFrame(QWidget& frame);

/// Moves a window that isn't shown yet over the middle of another one, and within the screen.
void CentreOver(QWidget& window, const QWidget& front);

/// Brings a modal window back that is minimised: some window managers offer that for all windows, and the
/// others would be dead then, with nothing to be seen of the reason.
void RefuseToBeMinimised(QWidget& window);

} // namespace folimark
