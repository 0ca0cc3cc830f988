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

Ref<MenuItem> MenuItem::Child(std::string_view name) const {
    for (const Ref<MenuItem>& child : children_) {
        if (child->Name() == name) {
            return child;
        }
    }
    return {};
}

Ref<MenuItem> MenuItem::Find(std::string_view name) const {
    if (Ref<MenuItem> child = Child(name)) {
        return child;
    }
    for (const Ref<MenuItem>& child : children_) {
        if (Ref<MenuItem> found = child->Find(name)) {
            return found;
        }
    }
    return {};
}

} // namespace folimark
