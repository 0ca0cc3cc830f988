#pragma once

#include "RectControl.h"

#include <cstdint>

namespace folimark {

/// How a text stands in its room.
enum class TextAlign : std::uint8_t { Left = 0, Centre = 1, Right = 2 };

/// A line of text. One that is too long for its room is shortened in the middle when it is drawn.
class Label : public RectControl {
  public:
    const std::string& Text() const { return text_; }
    void Text(const std::string& text);
    void Align(TextAlign align);

  protected:
    void MakeWidget(WindowFrame& frame) override;

  private:
    std::string text_;
    TextAlign align_ = TextAlign::Left;
};

} // namespace folimark
