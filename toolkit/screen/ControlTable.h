#pragma once

#include "Canvas.h"
#include "Label.h"
#include "Listbox.h"
#include "PopupMenu.h"
#include "PushButton.h"
#include "TextField.h"
#include "Toolbar.h"
#include "Window.h"

#include <cstdint>
#include <span>

namespace folimark {

enum class ControlClass : std::uint8_t { Listbox, Canvas, PushButton, Label, TextField, PopupMenu };

/// One row of a window's table of controls, which stand in the order in which the controls are made.
/// Positions and sizes are units in the window's content.
struct ControlRow {
    std::string_view name{};
    ControlClass controlClass = ControlClass::Label;
    Bounds bounds{};
    int tabIndex = 0;        ///< the keyboard focus goes through the window in this order
    std::string_view text{}; ///< caption or text
    std::string_view helpTag{};
    std::string_view accessibleName{}; ///< where the text alone says too little
    TextAlign align = TextAlign::Left;
    bool enabled = true;
    bool visible = true;
    bool isDefault = false;
    bool isCancel = false;
    bool horizontalScrollBar = false;
    bool useFocusRing = false;
    std::string_view pathSeparator{};
};

/// Makes the controls of `rows` in `window`.
void BuildControls(Window& window, std::span<const ControlRow> rows);

} // namespace folimark
