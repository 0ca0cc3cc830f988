#pragma once

class QDialog;

namespace folimark {

/// Shows a dialog of the window system's over the window in front, to which it isn't attached, and blocks
/// until it has been answered. Raises EndException if the application has ended meanwhile. \returns its
/// result.
int RunDialog(QDialog& dialog);

} // namespace folimark
