#include "MenuBar.h"

namespace folimark {

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
