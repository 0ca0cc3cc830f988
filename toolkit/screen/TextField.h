#pragma once

#include "RectControl.h"

namespace folimark {

/// One line of text that the user can edit, of any length.
class TextField : public RectControl {
  public:
    const std::string& Text() const { return text_; }
    void Text(const std::string& text);

  protected:
    void MakeWidget(WindowFrame& frame) override;

  private:
    std::string text_;
};

} // namespace folimark
