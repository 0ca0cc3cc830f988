#pragma once

#include "Robot.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace folimark::test {

/// The text that stands for the dialog in which a folder is chosen; its answer is a path, or "" for Cancel.
inline const std::string kFolderDialog = "Create an Album";
/// The highlight dialog, whose answer is a function that uses it.
inline const std::string kHighlightDialog = "Highlight";

/// How the dialogs that come while this object lives are answered, in their order:
/// `Answers answers{{kFolderDialog, path}, {"The album “Trips” has been created.", "OK"}}`. A message box is
/// told by its text (or by the start of it, with "…" for the rest) and answered by a button's caption. A
/// dialog that isn't expected, and an answer that nobody asked for, are failures. Without an object every
/// dialog is; it is dismissed then.
class Answers {
  public:
    struct Answer {
        std::string dialog;
        std::string button;
        std::function<void(const Ref<Window>&)> use{};
    };
    Answers(std::initializer_list<Answer> answers);
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;
    ~Answers();

    /// Called when a dialog is to be seen, before it is answered; gets the dialog. For pictures of it.
    static std::function<void(QWidget&)> Look;

  private:
    std::size_t waiting_; // the answers of objects around this one, which come later
};

/// The text by which a dialog is told.
std::string TextOf(const QWidget& dialog);

/// Watches for dialogs from now on; the start of the robot calls it.
void WatchDialogs();

} // namespace folimark::test
