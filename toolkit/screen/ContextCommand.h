#pragma once

#include <functional>
#include <string>

namespace folimark {

/// An item of the menu that a click with the right button, or the menu key, opens on a row.
struct ContextCommand {
    std::string text;
    bool enabled = true;
    std::function<void()> run;
};

} // namespace folimark
