#include "RectControl.h"

#include "EventGate.h"
#include "NativeControl.h"
#include "PlatformText.h"
#include "ToolkitKey.h"
#include "Window.h"
#include "WindowFrame.h"

namespace folimark {

RectControl::RectControl() : native_(std::make_unique<NativeControl>()) {}

RectControl::~RectControl() = default;

void RectControl::Attach(Window& owner, std::string name, const Bounds& bounds) {
    owner_ = &owner;
    name_ = std::move(name);
    bounds_ = bounds;
    MakeWidget(static_cast<WindowFrame&>(*owner.Native(kToolkit)));
    QWidget* widget = native_->widget;
    widget->setObjectName(ToQString(name_));
    Arrange(kToolkit);
    widget->setEnabled(enabled_);
    widget->setVisible(visible_);
    HelpTag(helpTag_);
    AccessibleName(accessibleName_);
}

void RectControl::Detach() {
    owner_ = nullptr;
    native_->widget = nullptr;
    WindowClosed();
}

void RectControl::Height(int height) {
    bounds_.height = height;
    Arrange(kToolkit);
}

void RectControl::Arrange(const ToolkitKey&) {
    if (native_->widget) {
        FitWidget(static_cast<const WindowFrame&>(*owner_->Native(kToolkit)));
    }
}

void RectControl::FitWidget(const WindowFrame& frame) {
    native_->widget->setGeometry(
        frame.OnScreen(QRect(bounds_.left, bounds_.top, bounds_.width, bounds_.height)));
}

void RectControl::Enabled(bool enabled) {
    enabled_ = enabled;
    if (native_->widget) {
        native_->widget->setEnabled(enabled);
    }
}

void RectControl::Visible(bool visible) {
    const bool changes = visible != std::exchange(visible_, visible);
    if (QWidget* widget = native_->widget; widget != nullptr && changes) {
        const bool hadFocus = widget->window()->focusWidget() == widget;
        widget->setVisible(visible);
        if (visible && hiddenWithFocus_) {
            widget->setFocus(Qt::OtherFocusReason);
        }
        hiddenWithFocus_ = !visible && hadFocus;
    }
}

void RectControl::HelpTag(const std::string& text) {
    helpTag_ = text;
    if (native_->widget) {
        native_->widget->setToolTip(AsToolTip(text));
    }
}

void RectControl::AccessibleName(const std::string& name) {
    accessibleName_ = name;
    if (native_->widget) {
        native_->widget->setAccessibleName(ToQString(name));
    }
}

void RectControl::Refresh(bool /*eraseBackground*/) {
    if (native_->widget) {
        // What covers the control, such as a list's headings and rows, isn't painted with it, unless it waits
        // for being painted anyway.
        for (QWidget* part : native_->widget->findChildren<QWidget*>()) {
            part->update();
        }
        native_->widget->repaint();
    }
}

void RectControl::SetFocus() {
    if (native_->widget) {
        native_->widget->setFocus(Qt::OtherFocusReason);
    }
}

void RectControl::FromUser(const std::function<void()>& handler) const {
    if (owner_ != nullptr) {
        const Ref<Window> keptAlive(owner_);
        EnterApplication(handler);
    }
}

void RectControl::ToPaint(const std::function<void()>& handler) const {
    if (owner_ != nullptr) {
        const Ref<Window> keptAlive(owner_);
        EnterToPaint(handler);
    }
}

void RectControl::TabAfter(const RectControl& previous) {
    if (native_->widget && previous.native_->widget) {
        QWidget::setTabOrder(previous.native_->widget, native_->widget);
    }
}

} // namespace folimark
