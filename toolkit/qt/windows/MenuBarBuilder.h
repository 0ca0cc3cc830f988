#pragma once

namespace folimark {

class Window;
class WindowFrame;

/// Fills the frame's menu bar from the window's MenuBar. Items about the application itself go to the end of
/// the last menu, where this desktop has them.
void BuildMenuBar(Window& window, WindowFrame& frame);

} // namespace folimark
