#pragma once

#include "RectControl.h"

namespace folimark {

class PushButton : public RectControl {
  public:
    /// Drawn with this platform's key in place of "⌘"; reading gives the text as it was set.
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& caption);

    /// Behaves like a click: Action has run when it returns. A disabled or closed button does nothing.
    void Push();
    /// For the toolkit: a click by the user.
    void Click(const ToolkitKey&);

    /// Return presses the window's default button, Escape its cancel button.
    bool Default() const { return default_; }
    void Default(bool isDefault) { default_ = isDefault; }
    bool Cancel() const { return cancel_; }
    void Cancel(bool isCancel) { cancel_ = isCancel; }

    std::function<void(PushButton&)> Action;

  protected:
    void MakeWidget(WindowFrame& frame) override;

  private:
    std::string caption_;
    bool default_ = false;
    bool cancel_ = false;
};

} // namespace folimark
