#pragma once

#include "Object.h"

#include <cstdint>
#include <string>

namespace folimark {

class MessageDialogButton : public Object {
  public:
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption) { caption_ = caption; }
    bool Visible() const { return visible_; }
    void Visible(bool visible) { visible_ = visible; }

  private:
    friend class MessageDialog;
    std::string caption_;
    bool visible_ = false;
};

enum class DialogIcon : std::int8_t { None = -1, Note = 0, Caution = 1 };

/// A question or a notice that stands over the whole application until a button is pressed.
class MessageDialog : public Object {
  public:
    MessageDialog();

    void Icon(DialogIcon icon) { icon_ = icon; }
    void Message(const std::string& text) { message_ = text; }
    /// The smaller text beneath the message; may be "".
    void Explanation(const std::string& text) { explanation_ = text; }

    const Ref<MessageDialogButton>& ActionButton() const { return action_; }
    const Ref<MessageDialogButton>& CancelButton() const { return cancel_; }
    const Ref<MessageDialogButton>& AlternateActionButton() const { return alternate_; }

    /// Blocks until a button is pressed, and returns that button. Return presses the action button; Escape
    /// the cancel button, or a sole button.
    Ref<MessageDialogButton> ShowModal();

  private:
    Ref<MessageDialogButton> action_;
    Ref<MessageDialogButton> cancel_;
    Ref<MessageDialogButton> alternate_;
    std::string message_;
    std::string explanation_;
    DialogIcon icon_ = DialogIcon::Note;
};

} // namespace folimark
