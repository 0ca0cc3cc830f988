#include "MenuBar.h"
#include "NativeMenuItem.h"
#include "PlatformText.h"

namespace folimark {

MenuItem::MenuItem() : native_(std::make_unique<NativeMenuItem>()) {}

MenuItem::~MenuItem() = default;

void MenuItem::Text(const std::string& text) {
    text_ = text;
    for (const QPointer<QAction>& action : native_->actions) {
        if (action) {
            action->setText(WithPlatformKeys(text));
        }
    }
}

void MenuItem::Enabled(bool enabled) {
    enabled_ = enabled;
    for (const QPointer<QAction>& action : native_->actions) {
        if (action) {
            action->setEnabled(enabled);
        }
    }
}

} // namespace folimark
